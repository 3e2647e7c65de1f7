#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the icons from src/icons/vx3260.svg: beside it a PNG for the forms and an ICO for Windows, in
# packaging/linux/ those that desktops show. To be run after a change of the SVG; the results are
# kept.
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
for size in 48 128; do
    rsvg-convert -w "$size" -h "$size" src/icons/vx3260.svg -o "packaging/linux/vx3260-eval-$size.png"
done
