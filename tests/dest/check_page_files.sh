#!/usr/bin/env bash
# After the Windows page-to-file tests: the files they wrote, read by
# libtiff and ImageMagick. usage: check_page_files.sh FOLDER
set -uo pipefail
dir=$1
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

tif=$dir/tiff_flavour.tif
if [ ! -f "$tif" ]; then
    fail "no $tif"
else
    info=$(tiffinfo "$tif" 2>&1)
    for line in 'Tile Width: 16 Tile Length: 16' 'Planar Configuration: separate image planes' \
        'Compression Scheme: LZW' 'Predictor: horizontal differencing'; do
        grep -qF "$line" <<<"$info" && echo "ok: $line" || fail "no '$line' in tiffinfo"
    done
    differing=$(compare -metric AE "$dir/tiff_flavour_source.bmp" "$tif" null: 2>&1)
    [ "$differing" = "0" ] && echo "ok: the pixels are the source's" || fail "pixels differing: $differing"
fi
echo "$failures failures"
[ "$failures" -eq 0 ]
