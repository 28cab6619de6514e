#!/usr/bin/env python3
"""The native half of the print proof: every page that the host's print
tests printed on the PDF printer is rendered with pdftoppm at 300 dpi, and the
image must lie in the box that its tags asked for, within one printer dot,
with its dark half on the side the test names.

usage: check_printed_pages.py EXPECT_DIR PDF_DIR GALLERY_DIR
Exits 77 (skipped) when no page was printed, saying why."""
import glob
import os
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
DARK, INK = 64, 250  # grey levels: the black half, and anything not paper


def read_pgm(path):
    with open(path, "rb") as f:
        data = f.read()
    parts, pos = [], 0
    while len(parts) < 4:  # magic, width, height, maxval
        while data[pos:pos + 1].isspace():
            pos += 1
        if data[pos:pos + 1] == b"#":
            pos = data.index(b"\n", pos)
            continue
        end = pos
        while not data[end:end + 1].isspace():
            end += 1
        parts.append(data[pos:end])
        pos = end
    width, height = int(parts[1]), int(parts[2])
    return width, height, data[pos + 1:]


def box_of(width, height, pixels, below):
    rows = [y for y in range(height) if min(pixels[y * width:(y + 1) * width]) < below]
    if not rows:
        return None
    cols = [x for x in range(width) if min(pixels[x + y * width] for y in range(rows[0], rows[-1] + 1)) < below]
    return cols[0], rows[0], cols[-1] + 1, rows[-1] + 1


def wait_for(pattern, since, seconds=60):
    """The newest PDF of the pattern written since the job was sent."""
    end = time.time() + seconds
    while time.time() < end:
        found = sorted((f for f in glob.glob(pattern) if os.path.getmtime(f) >= since - 2), key=os.path.getmtime)
        if found and time.time() - os.path.getmtime(found[-1]) > 1:  # cups-pdf has finished writing
            return found[-1]
        time.sleep(0.5)
    return None


def main():
    expect_dir, pdf_dir, gallery = sys.argv[1:4]
    pdf_dir = os.path.expanduser(pdf_dir)
    expects = sorted(glob.glob(os.path.join(expect_dir, "*.expect")))
    if not expects:
        print("skipped: no page was printed (no printer on this machine; see docs/print.md)")
        return SKIPPED
    failures = 0
    for expect in expects:
        name = os.path.basename(expect)[:-len(".expect")]
        x0, y0, x1, y1, dark = open(expect).read().split()
        want = tuple(int(v) for v in (x0, y0, x1, y1))
        pdf = wait_for(os.path.join(pdf_dir, name + "*.pdf"), os.path.getmtime(expect))
        if pdf is None:
            print(f"{name}: no PDF in {pdf_dir}")
            failures += 1
            continue
        with tempfile.TemporaryDirectory() as tmp:
            subprocess.run(["pdftoppm", "-r", "300", "-gray", "-singlefile", pdf, os.path.join(tmp, "page")],
                           check=True)
            width, height, pixels = read_pgm(os.path.join(tmp, "page.pgm"))
        got = box_of(width, height, pixels, INK)
        ok = got is not None and all(abs(g - w) <= 1 for g, w in zip(got, want))
        side = "none"
        if ok:
            black = box_of(width, height, pixels, DARK)
            if black[2] - black[0] < (got[2] - got[0]) * 3 // 4:
                side = "left" if black[0] <= got[0] + 1 else "right"
            else:
                side = "top" if black[1] <= got[1] + 1 else "bottom"
            # "turned": a quarter turn, the dark half on top or at the bottom.
            ok = side == dark or (dark == "turned" and side in ("top", "bottom"))
        print(f"{name}: page {width} x {height}, image at {got}, asked for {want}, dark side {dark}"
              f"{' (found ' + side + ')' if got else ''}: "
              f"{'ok' if ok else 'WRONG'}")
        failures += 0 if ok else 1
        os.makedirs(gallery, exist_ok=True)
        subprocess.run(["pdftoppm", "-r", "40", "-png", "-singlefile", pdf,
                        os.path.join(gallery, "printed_" + name.replace("zvprint-", ""))], check=True)
        os.remove(expect)
        os.remove(pdf)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
