#!/usr/bin/env bash
# Writes the sample through zvconv with the tags each destination page
# stores, then reads every file with a reader that is not ours.
# usage: check_written_files.sh WINE ZVCONV SAMPLE.bmp OUTDIR
set -uo pipefail
wine=$1 zvconv=$2 sample=$3 out=$4
mkdir -p "$out"
failures=0

fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# write NAME EXT TAGLINES...: zvconv SAMPLE -> OUTDIR/NAME.EXT with the tags.
write() {
    local name=$1 ext=$2; shift 2
    printf '%s\n' "$@" > "$out/$name.tags"
    rm -f "$out/$name.$ext"
    if ! "$wine" "$zvconv" "Z:$sample" "Z:$out/$name.$ext" "Z:$out/$name.tags" > "$out/$name.log" 2>&1; then
        fail "$name: zvconv failed"; cat "$out/$name.log"; return 1
    fi
}

expect() {  # what, got, wanted
    if [ "$2" != "$3" ]; then fail "$1: got '$2', wanted '$3'"; else echo "ok: $1 = $3"; fi
}

# TIFF: the flavour's compression and strips.
if write tiff_packbits tif 'TIFTYPE=COMP=32773;PHOTO=2;BPS=8;SPP=3;FILL=1;PLANAR=1;PRED=1;STRIPS=4'; then
    info=$(tiffinfo "$out/tiff_packbits.tif" 2>&1)
    expect "TIFF compression" "$(grep -o 'Compression Scheme: .*' <<<"$info")" "Compression Scheme: PackBits"
    expect "TIFF rows per strip" "$(grep -o 'Rows/Strip: .*' <<<"$info")" "Rows/Strip: 4"
fi
if write tiff_bilevel tif 'TIFTYPE=COMP=1;PHOTO=0;BPS=1;SPP=1;FILL=2;PLANAR=1;PRED=1;STRIPS=0'; then
    dump=$(tiffdump "$out/tiff_bilevel.tif" 2>&1)
    expect "bilevel bits" "$(grep -o 'BitsPerSample (258) SHORT (3) 1<[0-9]*>' <<<"$dump")" "BitsPerSample (258) SHORT (3) 1<1>"
    expect "bilevel fill order" "$(grep -o 'FillOrder (266) SHORT (3) 1<[0-9]*>' <<<"$dump")" "FillOrder (266) SHORT (3) 1<2>"
fi

# TIFF layouts and compressions the engine codes itself: tiles, separate
# planes, LZW and Deflate with differencing; libtiff must give the
# sample's pixels back.
tiff_layout() {  # name, type text, tiffinfo lines wanted...
    local name=$1 type=$2; shift 2
    write "$name" tif "TIFTYPE=$type" || return
    local info; info=$(tiffinfo "$out/$name.tif" 2>&1)
    for line in "$@"; do
        grep -qF "$line" <<<"$info" && echo "ok: $name: $line" || fail "$name: no '$line' in tiffinfo"
    done
    expect "$name pixels differing from the sample" "$(compare -metric AE "$sample" "$out/$name.tif" null: 2>&1)" "0"
}
tiff_layout tiff_tiles_planar 'COMP=32773;PLANAR=2;TILES=48x32' 'Tile Width: 48 Tile Length: 32' \
    'Planar Configuration: separate image planes'
tiff_layout tiff_lzw 'COMP=5;PHOTO=2;BPS=8;SPP=3;PRED=2;STRIPS=16' 'Compression Scheme: LZW' \
    'Predictor: horizontal differencing'
tiff_layout tiff_deflate_tiles 'COMP=8;PRED=2;TILES=16x16' 'Compression Scheme: AdobeDeflate' 'Tile Width: 16'

# TIFF in CCITT group 4 (two-dimensional), low bits first: libtiff
# decodes it to the sample made bilevel.
if write tiff_group4 tif 'TIFTYPE=COMP=4;PHOTO=0;BPS=1;SPP=1;FILL=2;TILES=32x32'; then
    expect "group 4 compression" "$(tiffinfo "$out/tiff_group4.tif" 2>&1 | grep -o 'Compression Scheme: .*')" \
        "Compression Scheme: CCITT Group 4"
    convert "$sample" -colorspace gray -threshold 50% "$out/tiff_group4_expected.pbm"
    expect "group 4 pixels differing from the bilevel sample" \
        "$(compare -metric AE "$out/tiff_group4_expected.pbm" "$out/tiff_group4.tif" null: 2>&1)" "0"
fi

# GIF: interlaced, with white transparent (the bottom right pixel is white).
if write gif_choices gif 'GIFINT=ON' 'GIFTRANS=WHITE'; then
    expect "GIF interlace" "$(identify -format '%[interlace]' "$out/gif_choices.gif")" "GIF"
    expect "GIF white is transparent" "$(convert "$out/gif_choices.gif" -format '%[fx:p{63,47}.a]' info:)" "0"
    expect "GIF red stays opaque" "$(convert "$out/gif_choices.gif" -format '%[fx:p{0,0}.a]' info:)" "1"
fi

# ICO: the chosen size.
if write ico_size ico 'ICOSIZE=48 x 48'; then
    expect "ICO size" "$(identify -format '%wx%h' "$out/ico_size.ico")" "48x48"
fi

# JPEG: the quality factor reaches the quantization tables (ImageMagick
# estimates the quality from them): "JPGQ" 20 is 93 of 100, 200 is 22, and
# the finer file is close to the sample.
if write jpeg_fine jpg 'JPGQ=20' && write jpeg_coarse jpg 'JPGQ=200'; then
    expect "JPEG quality of JPGQ 20" "$(identify -format '%Q' "$out/jpeg_fine.jpg")" "93"
    expect "JPEG quality of JPGQ 200" "$(identify -format '%Q' "$out/jpeg_coarse.jpg")" "22"
    psnr=$(compare -metric PSNR "$sample" "$out/jpeg_fine.jpg" null: 2>&1)
    awk -v p="$psnr" 'BEGIN { exit !(p + 0 >= 40) }' && echo "ok: JPEG 20 PSNR $psnr" || fail "JPEG 20 PSNR $psnr below 40"
fi

# EPS: CMYK with half the gray replaced, a coarse preview; Ghostscript's
# rendering must give the source's pixels back.
if write eps_cmyk eps 'EPSMODEL=CMYK' 'EPSUCR=0.5' 'EPSFF=ON' 'EPSEMBVIEW=COARSEBW'; then
    expect "EPS binary header" "$(head -c 4 "$out/eps_cmyk.eps" | od -An -tx1 | tr -d ' ')" "c5d0d3c6"
    grep -aq '/DeviceCMYK setcolorspace' "$out/eps_cmyk.eps" || fail "EPS: no CMYK raster"
    gs -q -dSAFER -dNOPAUSE -dBATCH -sDEVICE=ppmraw -dEPSCrop -dUseFastColor=true -r72 -sOutputFile="$out/eps_cmyk.ppm" "$out/eps_cmyk.eps"
    expect "EPS rendering differs from the source in" \
        "$(compare -metric AE -fuzz 2% "$sample" "$out/eps_cmyk.ppm" null: 2>&1)" "0"
fi

# EPS with a Windows metafile preview: libwmf finds in it the sample's
# pixels drawn over the sample's box.
u32() { od -An -tu4 -j "$2" -N4 "$1" | tr -d ' '; }
if write eps_wmf eps 'EPSEMBVIEW=WMF'; then
    at=$(u32 "$out/eps_wmf.eps" 12) length=$(u32 "$out/eps_wmf.eps" 16)
    if [ "${length:-0}" -gt 0 ]; then
        tail -c +"$((at + 1))" "$out/eps_wmf.eps" | head -c "$length" > "$out/eps_wmf.wmf"
        rm -f "$out"/eps_wmf-*.png
        (cd "$out" && wmf2svg -o eps_wmf.svg eps_wmf.wmf)
        expect "WMF preview box" "$(grep -o '<svg width="[0-9]*" height="[0-9]*"' "$out/eps_wmf.svg")" \
            '<svg width="64" height="48"'
        # The SVG names the picture it took out of the metafile.
        picture=$(grep -o 'xlink:href="[^"]*"' "$out/eps_wmf.svg" | head -1 | cut -d'"' -f2)
        expect "WMF preview pixels differing from the sample" \
            "$(compare -metric AE "$sample" "$out/${picture:-none}" null: 2>&1)" "0"
    else
        fail "EPS: no WMF preview in the header"
    fi
fi

# Fax: TIFF class F, Modified Huffman, coarse; libtiff decodes it to the
# sample's pixels made bilevel.
if write fax_coarse dcx 'DCXVR=2592' 'DCXMPAGE=ON'; then
    info=$(tiffinfo "$out/fax_coarse.dcx" 2>&1)
    expect "fax compression" "$(grep -o 'Compression Scheme: .*' <<<"$info")" "Compression Scheme: CCITT Group 3"
    expect "fax resolution" "$(grep -o 'Resolution: .*' <<<"$info")" "Resolution: 204, 98 pixels/inch"
    expect "fax line" "$(grep -o 'Image Width: [0-9]*' <<<"$info")" "Image Width: 1728"
    if tiffcp -c none "$out/fax_coarse.dcx" "$out/fax_plain.tif" 2>"$out/fax_decode.log" && [ ! -s "$out/fax_decode.log" ]; then
        convert "$out/fax_plain.tif" -crop 64x48+0+0 +repage "$out/fax_page.pbm"
        convert "$sample" -colorspace gray -threshold 50% "$out/fax_expected.pbm"
        expect "fax pixels differing from the bilevel sample" \
            "$(compare -metric AE "$out/fax_expected.pbm" "$out/fax_page.pbm" null: 2>&1)" "0"
    else
        fail "fax: libtiff cannot decode it"; cat "$out/fax_decode.log"
    fi
fi

# Fax offsets in millimetres: 10 across is 80 dots at 204 dpi, 5 down is
# 19 coarse lines; the sample stands there on a white page.
if write fax_offsets sci 'SCIVR=2592' 'SCIHOFF=10' 'SCIVOFF=5'; then
    if tiffcp -c none "$out/fax_offsets.sci" "$out/fax_offsets.tif" 2>"$out/fax_offsets_decode.log" &&
        [ ! -s "$out/fax_offsets_decode.log" ]; then
        expect "fax page height with the offset" "$(identify -format '%h' "$out/fax_offsets.tif")" "$((48 + 19))"
        convert "$out/fax_offsets.tif" -crop 64x48+80+19 +repage "$out/fax_offsets_image.pbm"
        expect "fax pixels differing from the moved sample" \
            "$(compare -metric AE "$out/fax_expected.pbm" "$out/fax_offsets_image.pbm" null: 2>&1)" "0"
        expect "fax margins, black pixels" \
            "$(convert "$out/fax_offsets.tif" -fill white -draw 'rectangle 80,19 143,66' -format '%[fx:int(w*h*(1-mean)+0.5)]' info:)" "0"
    else
        fail "fax offsets: libtiff cannot decode it"; cat "$out/fax_offsets_decode.log"
    fi
fi

echo "$failures failures"
[ "$failures" -eq 0 ]
