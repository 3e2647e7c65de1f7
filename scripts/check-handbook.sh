#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks the links of a handbook: each leads to a page, and its contents lead to every page.
# Usage: scripts/check-handbook.sh FOLDER
set -euo pipefail
folder=$(realpath "$1")
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${documentPackages[@]}"
# As root, linkchecker reads the pages as somebody else.
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cp -r "$folder/." "$place"
chmod -R a+rX "$place"

if ! linkchecker --no-status --verbose --output csv "$place/index.html" \
    >"$place/links.csv" 2>"$place/errors.txt"; then
    awk -F ';' -v place="file://$place/" '/;False;/ {
        sub(place, "", $2); sub(place, "", $8); print $8 " links " $1 ", which is not there." }
        END { if (NR == 0) exit 1 }' "$place/links.csv" >&2 || cat "$place/errors.txt" >&2
    exit 1
fi
unlinked=0
while read -r page; do
    if ! grep -q "/$page" "$place/links.csv"; then
        Say "No link leads from the contents to $page."
        unlinked=1
    fi
done < <(cd "$place" && find . -name '*.html' -printf '%P\n')
[ "$unlinked" -eq 0 ]
Say "$(find "$place" -name '*.html' | wc -l) pages of the handbook, all linked, no dead link."
