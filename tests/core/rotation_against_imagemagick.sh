#!/bin/sh
# A stored angle of 90 is the user's quarter turn clockwise, and so is
# ImageMagick's -rotate 90; a stored -90 is the other way. The Wine test
# writes the source and what DoOptions made of it; ImageMagick turns the
# source itself and compares pixel for pixel.
# usage: rotation_against_imagemagick.sh TEST_PROGRAM FOLDER
set -eu
program=$1
out=$2
rm -rf "$out"
mkdir -p "$out"
ZV_ROTATION_FILES=$(winepath -w "$out" 2>/dev/null) \
    wine "$program" --gtest_filter=Conversion.AStoredAngleOfAnySignTurnsThePicture
same() {  # ours, the angle ImageMagick turns by
    convert "$out/source.bmp" -rotate "$2" "$out/expected.png"
    differing=$(compare -metric AE "$1" "$out/expected.png" null: 2>&1) || true
    echo "$1 against -rotate $2: $differing pixels differ"
    [ "$differing" = 0 ]
}
same "$out/turned90.bmp" 90
same "$out/turned-90.bmp" -90
