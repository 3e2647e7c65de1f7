#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the icons in src/icons/ from vx3260.svg there: a PNG for the forms, an ICO for Windows. To be
# run after a change of the SVG; the results are kept beside it.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing librsvg2-bin icoutils
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for size in 16 32 48 256; do
    rsvg-convert -w "$size" -h "$size" src/icons/vx3260.svg -o "$work/$size.png"
done
icotool -c -o src/icons/vx3260.ico "$work"/*.png
cp "$work/256.png" src/icons/vx3260.png
