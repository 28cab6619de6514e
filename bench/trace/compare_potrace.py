#!/usr/bin/env python3
"""Sets the tracer against potrace on the bitmaps that trace_bench makes.

For each bitmap: path nodes (the ends of the segments of every path), the
area error (pixels whose colour differs from the truth when the result is
painted back at the source size), and processor time (best of
ZV_BENCH_RUNS runs, 2 by default). potrace traces one colour layer at a
time (a PBM of the pixels of that colour), with its defaults (turd size 2,
alphamax 1, curve optimisation 0.2); its time is the sum over the layers
of `potrace -b svg` as a process (reading the PBM and writing the SVG
included), its nodes are counted in that SVG, and its picture is its own
rendering (`-b pgm`, threshold at half grey), the layers painted over the
background in colour order. The tracer's time is in its own process,
without reading or writing files. The noisy logo is measured against the
logo without its noise, and the 24-megapixel scan is timed only.
"""
import os
import re
import subprocess
import sys

bench_bin, work = sys.argv[1], sys.argv[2]
runs = int(os.environ.get("ZV_BENCH_RUNS", "2"))
os.makedirs(work, exist_ok=True)


def best(cmd):
    t = 1e30
    for _ in range(runs):
        p = subprocess.Popen(cmd, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(p.pid, 0)
        if os.waitstatus_to_exitcode(status) != 0:
            raise RuntimeError("failed: " + " ".join(cmd))
        t = min(t, usage.ru_utime + usage.ru_stime)
    return t


def read_netpbm(path):
    data = open(path, "rb").read()
    fields, pos = [], 0
    while len(fields) < 4:
        while data[pos:pos + 1].isspace():
            pos += 1
        if data[pos:pos + 1] == b"#":
            pos = data.index(b"\n", pos) + 1
            continue
        end = pos
        while not data[end:end + 1].isspace():
            end += 1
        fields.append(data[pos:end])
        pos = end
    return int(fields[1]), int(fields[2]), data[pos + 1:]


def svg_nodes(path):
    text = open(path).read()
    nodes = 0
    for d in re.findall(r'd="([^"]*)"', text, re.S):
        command, count = None, 0
        for token in re.findall(r"[A-Za-z]|-?\d+(?:\.\d+)?", d):
            if token.isalpha():
                command, count = token.lower(), 0
                continue
            count += 1
            if command == "c" and count % 6 == 0:
                nodes += 1
            elif command == "l" and count % 2 == 0:
                nodes += 1
    return nodes


def potrace(name, colours, measure):
    seconds, nodes = 0.0, 0
    w = h = 0
    picture = None
    for colour in range(1, colours):
        layer = f"{work}/{name}.layer{colour}.pbm"
        svg = f"{work}/{name}.layer{colour}.svg"
        seconds += best(["potrace", "-b", "svg", "-o", svg, layer])
        nodes += svg_nodes(svg)
        if measure:
            pgm = f"{work}/{name}.layer{colour}.pgm"
            subprocess.run(["potrace", "-b", "pgm", "-o", pgm, layer], check=True)
            w, h, grey = read_netpbm(pgm)
            if picture is None:
                picture = bytearray(w * h)
            # Where the layer is inked its colour goes over what lies there.
            ink = grey.translate(bytes(255 if v < 128 else 0 for v in range(256)))
            keep = grey.translate(bytes(0 if v < 128 else 255 for v in range(256)))
            picture = bytearray(a & k | (colour & i) for a, k, i in zip(picture, keep, ink))
    differ = -1
    if measure:
        truth = open(f"{work}/{name}.truth.idx", "rb").read()
        differ = sum(1 for a, b in zip(picture, truth) if a != b)
    return nodes, differ, seconds * 1000.0


def main():
    lines = subprocess.run([bench_bin, work], check=True, capture_output=True, text=True).stdout.split("\n")
    rows = []
    for line in filter(None, lines):
        name, nodes, differ, ms, colours = line.split()
        measure = int(differ) >= 0
        p_nodes, p_differ, p_ms = potrace(name, int(colours), measure)
        rows.append((name, int(nodes), p_nodes, int(differ), p_differ, float(ms), p_ms))
    print("| bitmap | nodes (tracer) | nodes (potrace) | area error (tracer) | area error (potrace) "
          "| time ms (tracer) | time ms (potrace) |")
    print("|---|---|---|---|---|---|---|")
    for name, n, pn, d, pd, ms, pms in rows:
        err = lambda v: "-" if v < 0 else f"{v:,}"
        print(f"| {name} | {n:,} | {pn:,} | {err(d)} | {err(pd)} | {ms:,.0f} | {pms:,.0f} |")


main()
