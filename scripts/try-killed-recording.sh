#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# try-killed-recording.sh [N]: kills N recordings on the simulated board at random moments, 50
# without N. Each file has to end in a whole line, or --append has to mend it; every line that is
# no comment has to have all columns, and the times have to rise.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

# Fields FILE: whether each line is a comment or has the columns of the first one, in order.
Fields() {
    awk -F, '/^#/ { next } !columns { columns = NF; next }
        NF != columns || $2 <= last { print "line " NR ": " $0; wrong = 1 } { last = $2 }
        END { exit wrong }' "$1"
}

# Check WHAT FILE
Check() {
    if ! Fields "$2" >&2 || [ "$(tail -c 1 "$2" | wc -l)" -ne 1 ]; then
        Say "Recording $number: $1 is wrong"
        wrong=$((wrong + 1))
    fi
}

program=${VX3260_CLI:-}
if [ -z "$program" ]; then
    InstallMissing "${buildPackages[@]}"
    Build debug vx3260-cli
    program=$PWD/build/debug/bin/vx3260-cli
fi
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
total=${1:-50} torn=0 empty=0 wrong=0
for ((number = 1; number <= total; number++)); do
    file=$folder/$number.csv
    "$program" --simulated record main --output "$file" 2>/dev/null &
    sleep "0.0$((RANDOM % 90 + 10))"
    [ $((number % 5)) -ne 0 ] || sleep 0.5
    kill -9 $!
    wait $! 2>/dev/null || true
    if [ ! -s "$file" ]; then
        empty=$((empty + 1))
        continue
    fi
    if [ "$(tail -c 1 "$file" | wc -l)" -ne 1 ]; then
        torn=$((torn + 1))
    else
        Check "the killed file" "$file"
    fi
    # As the system leaves a write that it ended in the middle.
    [ $((number % 2)) -ne 0 ] || truncate -s -7 "$file"
    "$program" --simulated record main --output "$file" --append --count 20 2>/dev/null ||
        wrong=$((wrong + 1))
    Check "the continued file" "$file"
done
Say "Killed $total recordings, $empty before their first line; $torn torn lines; $wrong checks failed."
[ "$wrong" -eq 0 ]
