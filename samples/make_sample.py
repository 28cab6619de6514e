#!/usr/bin/env python3
"""Writes sample.bmp: 64 x 48 pixels, 24 bits, bottom-up rows padded to four
bytes. Top left red, top right blue, bottom half a grey ramp from black to
white, and a yellow bar across the middle, so that colour changes, rotation
and flips all show."""
import struct
import sys

W, H = 64, 48


def pixel(x, y):  # y counts from the top
    if 22 <= y < 26:
        return (255, 255, 0)
    if y < 22:
        return (255, 0, 0) if x < W // 2 else (0, 0, 255)
    level = x * 255 // (W - 1)
    return (level, level, level)


def main(path):
    row_size = (W * 3 + 3) & ~3
    rows = []
    for y in reversed(range(H)):
        row = bytearray()
        for x in range(W):
            r, g, b = pixel(x, y)
            row += bytes((b, g, r))
        row += bytes(row_size - len(row))
        rows.append(bytes(row))
    pixels = b"".join(rows)
    header = struct.pack("<IiiHHIIiiII", 40, W, H, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    offset = 14 + len(header)
    file_header = struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
    with open(path, "wb") as out:
        out.write(file_header + header + pixels)


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "sample.bmp")
