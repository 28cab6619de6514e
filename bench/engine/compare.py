#!/usr/bin/env python3
"""Times the engine's operations against ImageMagick and libvips on the same
pixels, single-threaded, and prints the table with the ratios.

All times are processor time, best of ZV_BENCH_RUNS runs (2 by default).
The tools' times leave out starting the program and loading the picture as
well as a command line allows: ImageMagick reads a memory-mapped pixel
cache (.mpc) and writes to null:, and its time for `convert in.mpc null:`
is taken off; libvips reads and writes its own mapped format (.v) on
tmpfs, and a plain copy scaled to the size of the result is taken off.
"""
import os
import shutil
import subprocess
import sys
import tempfile

bench_bin, work = sys.argv[1], sys.argv[2]
runs = int(os.environ.get("ZV_BENCH_RUNS", "2"))
env = dict(os.environ, MAGICK_THREAD_LIMIT="1", OMP_NUM_THREADS="1", VIPS_CONCURRENCY="1")

W, H = 6000, 4000
OPS = [
    # name, ImageMagick arguments, libvips command, result size in pixels
    ("thumbnail_256x256", ["-scale", "256x256!"],
     ["resize", "IN", "OUT", str(256 / W), "--vscale", str(256 / H), "--kernel", "linear"], 256 * 256),
    ("resize_3000x2000_smooth", ["-scale", "3000x2000!"],
     ["resize", "IN", "OUT", "0.5", "--kernel", "linear"], 3000 * 2000),
    ("rotate_90", ["-rotate", "90"], ["rot", "IN", "OUT", "d90"], W * H),
    ("rotate_33", ["-background", "white", "-rotate", "33"],
     ["rotate", "IN", "OUT", "327", "--background", "255 255 255"], 7210 * 6622),
    ("gamma_contrast", ["-brightness-contrast", "10x20", "-gamma", "1.5"],
     ["maplut", "IN", "OUT", "LUT"], W * H),
    ("equalize", ["-equalize"], ["hist_equal", "IN", "OUT"], W * H),
    ("reduce_8bit_diffusion", ["-dither", "FloydSteinberg", "-colors", "256"],
     ["pngsave", "IN", "OUTPNG", "--palette", "--dither", "1", "--compression", "0"], None),
]


def best(cmd):
    """Least processor time (user + system) of the command over the runs:
    on a shared machine the wall clock would count other people's work."""
    t = 1e30
    for _ in range(runs):
        p = subprocess.Popen(cmd, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(p.pid, 0)
        p.returncode = os.waitstatus_to_exitcode(status)
        if p.returncode != 0:
            raise RuntimeError("failed: " + " ".join(cmd))
        t = min(t, usage.ru_utime + usage.ru_stime)
    return t * 1000.0


def main():
    os.makedirs(work, exist_ok=True)
    shm = tempfile.mkdtemp(dir="/dev/shm" if os.path.isdir("/dev/shm") else None)
    try:
        ppm = os.path.join(work, "in.ppm")
        subprocess.run([bench_bin, "--write-ppm", ppm], check=True)
        mpc = os.path.join(shm, "in.mpc")
        vin = os.path.join(shm, "in.v")
        vout = os.path.join(shm, "out.v")
        png = os.path.join(shm, "out.png")
        subprocess.run(["convert-im6.q16", ppm, mpc], env=env, check=True)
        subprocess.run(["vips", "copy", ppm, vin], env=env, check=True)
        # The look-up table of the point operation, built once.
        ident, l1, lut = (os.path.join(shm, n) for n in ("id.v", "l1.v", "lut.v"))
        subprocess.run(["vips", "identity", ident], env=env, check=True)
        subprocess.run(["vips", "linear", "--uchar", "--", ident, l1, "1.25", "-22"], env=env, check=True)
        subprocess.run(["vips", "gamma", l1, lut, "--exponent", "0.667"], env=env, check=True)
        tiny = os.path.join(shm, "tiny.v")
        subprocess.run(["vips", "crop", vin, tiny, "0", "0", "8", "8"], env=env, check=True)

        ours = {}
        out = subprocess.run([bench_bin], check=True, capture_output=True, text=True).stdout
        for line in out.splitlines():
            name, ms = line.split()
            ours[name] = float(ms)

        im_base = best(["convert-im6.q16", "-limit", "thread", "1", mpc, "null:"])
        vips_start = best(["vips", "copy", tiny, vout])
        vips_copy = best(["vips", "copy", vin, vout])
        png_base = best(["vips", "pngsave", vin, png, "--compression", "0"])

        print("%-26s %10s %10s %10s %8s %8s" % ("operation", "ours ms", "IM ms", "vips ms", "IM/ours", "vips/ours"))
        for name, im_args, vips_args, out_pixels in OPS:
            im = best(["convert-im6.q16", "-limit", "thread", "1", mpc] + im_args + ["null:"]) - im_base
            cmd = ["vips"] + [vin if a == "IN" else vout if a == "OUT" else png if a == "OUTPNG"
                              else lut if a == "LUT" else a for a in vips_args]
            v = best(cmd)
            if out_pixels is None:
                v -= png_base
            else:
                # Starting up, and writing the result (half a copy, by its size).
                v -= vips_start + (vips_copy - vips_start) * 0.5 * out_pixels / (W * H)
            o = ours.get(name, float("nan"))
            print("%-26s %10.1f %10.1f %10.1f %8.2f %8.2f" % (name, o, im, v, im / o, v / o))
            sys.stdout.flush()
    finally:
        shutil.rmtree(shm, ignore_errors=True)


main()
