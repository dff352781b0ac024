#!/usr/bin/env bash
# Makes the icons in fixed sizes from the scalable ones of data/desktop. Needs rsvg-convert.
set -euo pipefail
cd "$(dirname "$0")"

for drawing in ../../data/desktop/*.svg; do
    for size in 16 22 24 32 48 64 128 256; do
        rsvg-convert -w $size -h $size "$drawing" -o "$(basename "$drawing" .svg)-$size.png"
    done
done
