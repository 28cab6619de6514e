#!/usr/bin/env bash
# Source files the engine decodes itself, read through zvconv and written
# as PNG: PCX files of an independent writer (ImageMagick) must give the
# pixels ImageMagick reads in them, and a CUT picture the colours of the
# palette file its tag names rather than those of the one beside it. PCX
# files the engine writes must give ImageMagick the pixels they came from.
# usage: check_read_files.sh WINE ZVCONV SAMPLE.bmp OUTDIR
set -uo pipefail
wine=$1 zvconv=$2 sample=$3 out=$4
mkdir -p "$out"
failures=0

fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
expect() {  # what, got, wanted
    if [ "$2" != "$3" ]; then fail "$1: got '$2', wanted '$3'"; else echo "ok: $1 = $3"; fi
}
# read NAME SOURCE TAGLINES...: zvconv SOURCE -> OUTDIR/NAME.png with the tags.
read_to_png() {
    local name=$1 source=$2; shift 2
    printf '%s\n' "$@" > "$out/$name.tags"
    rm -f "$out/$name.png"
    if ! "$wine" "$zvconv" "Z:$source" "Z:$out/$name.png" "Z:$out/$name.tags" > "$out/$name.log" 2>&1; then
        fail "$name: zvconv failed"; cat "$out/$name.log"; return 1
    fi
}

# 24 bits in three planes, and 256 colours with the palette at the end.
convert "$sample" "$out/rgb.pcx"
convert "$sample" -type palette "$out/palette.pcx"
for name in rgb palette; do
    if read_to_png "$name" "$out/$name.pcx"; then
        expect "$name.pcx pixels differing from ImageMagick's reading" \
            "$(compare -metric AE "$out/$name.pcx" "$out/$name.png" null: 2>&1)" "0"
    fi
done

# The engine's own PCX of each, as ImageMagick reads it.
for name in rgb palette; do
    printf '' > "$out/$name-written.tags"
    rm -f "$out/$name-written.pcx"
    if "$wine" "$zvconv" "Z:$out/$name.pcx" "Z:$out/$name-written.pcx" "Z:$out/$name-written.tags" \
        > "$out/$name-written.log" 2>&1; then
        expect "$name.pcx written by the engine, pixels differing" \
            "$(compare -metric AE "$out/$name.pcx" "$out/$name-written.pcx" null: 2>&1)" "0"
    else
        fail "$name-written: zvconv failed"; cat "$out/$name-written.log"
    fi
done

# A CUT picture of two pixels, indices 1 and 2, with two palettes.
python3 - "$out" <<'PY'
import struct, sys
out = sys.argv[1]
def palette(entries):
    head = b'AH' + struct.pack('<HH', 0xE3, 0) + b'A\0' + struct.pack('<HHH', 0, 0, len(entries) - 1)
    head += struct.pack('<HHH', 255, 255, 255)
    return head.ljust(40, b'\0') + b''.join(struct.pack('<HHH', *e) for e in entries)
open(out + '/pic.cut', 'wb').write(struct.pack('<HHH', 2, 1, 0) + struct.pack('<H', 4) + bytes([2, 1, 2, 0]))
open(out + '/pic.pal', 'wb').write(palette([(0, 0, 0), (9, 9, 9), (9, 9, 9)]))
open(out + '/chosen.pal', 'wb').write(palette([(0, 0, 0), (255, 0, 0), (0, 0, 255)]))
PY
if read_to_png cut "$out/pic.cut" "CUTIPAL=Z:$out/chosen.pal"; then
    expect "CUT in the chosen palette's colours" \
        "$(convert "$out/cut.png" -format '%[hex:p{0,0}] %[hex:p{1,0}]' info:)" "FF0000 0000FF"
fi

echo "$failures failures"
[ "$failures" -eq 0 ]
