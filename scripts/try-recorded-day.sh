#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# try-recorded-day.sh [TIME]: records a simulated day, or TIME such as 2h, at 105 codes a second, by
# intervals and by codes, and says what came of it. The simulated board's clock makes minutes of it;
# the codes take some 600 MB on the disk for that time.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

# Figures FILE...: lines of codes or intervals, the conversions in them, and the largest gap between
# two of them in seconds; fails where a line has other columns or a time does not rise.
Figures() {
    awk -F, -v counted="$counted" '/^#/ { next }
        FNR == 1 { columns = NF; next }
        NF != columns || (lines && $2 <= last) { print FILENAME ", line " FNR ": " $0 >"/dev/stderr"; wrong = 1 }
        { lines++; codes += counted ? $4 : 1; if (lines > 1 && $2 - last > gap) gap = $2 - last; last = $2 }
        END { printf "%d lines, %d codes, largest gap %.3f s", lines, codes, gap; exit wrong }' "$@"
}

# Try WHAT OPTION...
Try() {
    local what=$1 start=$SECONDS pid rss first='' most=0 code=0 figures
    shift
    rm -f "$folder"/*.csv
    printf 'set mode mode=power-down\nset filter word=13\nrecord main --duration %s --output %s %s\n' \
        "$time" "$folder/day.csv" "$*" >"$folder/script"
    "$program" --simulated script "$folder/script" >"$folder/out" 2>"$folder/err" &
    pid=$!
    while rss=$(Resident $pid) && [ -n "$rss" ]; do
        # What the first tenth of a minute takes is not growth.
        [ -n "$first" ] || [ $((SECONDS - start)) -lt 6 ] || first=$rss
        [ "$rss" -le "$most" ] || most=$rss
        sleep 0.5
    done
    wait $pid || code=$?
    figures=$(Figures "$folder"/day*.csv) || code=1
    Say "$time $what: $figures, $(find "$folder" -name 'day*.csv' | wc -l) files," \
        "$(du -cb "$folder"/day*.csv | awk 'END { print $1 }') bytes, $((SECONDS - start)) s," \
        "memory $most KiB, of which $((most - ${first:-$most})) since 6 s; $(tail -n 1 "$folder/err" | sed 's/, to .*//')"
    [ "$code" -eq 0 ] || wrong=$((wrong + 1))
}

program=${VX3260_CLI:-}
if [ -z "$program" ]; then
    InstallMissing "${buildPackages[@]}"
    Build release vx3260-cli
    program=$PWD/build/release/bin/vx3260-cli
fi
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
time=${1:-24h} wrong=0
counted=1
Try 'by intervals of 1 s' --every 1s
counted=
Try 'by codes' --rotate 1h
[ "$wrong" -eq 0 ]
