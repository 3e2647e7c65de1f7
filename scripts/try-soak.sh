#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# try-soak.sh [MINUTES [PROGRAM]]: for an hour, or MINUTES, in a display of its own, one program
# records on the simulated board with its live chart, while another reads blocks with its chart and
# opens their noise, histogram and plot over and over, by keyboard. Says what memory each had after
# the first minute and later: more than 1 MiB of growth fails.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${buildPackages[@]}" "${soakPackages[@]}"
minutes=${1:-60} program=${2:-}
if [ "$minutes" -lt 2 ]; then
    Say "Two minutes at least: the first one is not counted."
    exit 2
fi
if [ -z "$program" ]; then
    Build release
    program=$PWD/build/release/bin/vx3260-eval
fi
program=$(realpath "$program")
if [ -z "${VX3260_SOAK:-}" ]; then
    VX3260_SOAK=$(mktemp -d)
    export VX3260_SOAK
    trap 'rm -r "$VX3260_SOAK"' EXIT
    xvfb-run -a -s '-screen 0 1600x1000x24' scripts/try-soak.sh "$minutes" "$program"
    exit
fi
root=$PWD
cd "$VX3260_SOAK"
openbox 2>>errors.txt &
trap 'kill $(jobs -p)' EXIT

Fail() {
    import -window root "$root/build/soak-failed.png"
    Say "$1; see build/soak-failed.png."
    exit 1
}

# Window PID TITLE: gives the keyboard to a program's window.
Window() {
    timeout 120 xdotool search --sync --onlyvisible --all --pid "$1" --name "$2" windowactivate --sync \
        >/dev/null || Fail "There is no window \"$2\""
    sleep 0.3
}

Keys() {
    xdotool key --clearmodifiers --delay 200 "$@"
    sleep 0.5
}

# In a session of its own, it can be made to yield to what else the machine does.
setsid "$program" --simulated 2>>errors.txt &
recorder=$!
Window $recorder 'Main Menu'
Keys alt+t r
Window $recorder 'Record'
Keys alt+n Down
Keys alt+i ctrl+a
xdotool type --delay 50 "$VX3260_SOAK/soak.csv"
Keys alt+c
Keys alt+s
"$program" --simulated 2>>errors.txt &
reader=$!
Window $reader 'Main Menu'
Keys alt+m
Window $reader 'Read Data From Main'
Keys alt+c

Round() {
    Window $reader 'Read Data From Main'
    Keys alt+r
    sleep 2
    Keys alt+n
    Window $reader 'Noise Analysis'
    Keys alt+h
    Window $reader 'Histogram'
    Keys plus plus Left Right
    Keys alt+a
    Window $reader 'Noise Analysis'
    Keys alt+g
    Window $reader 'Plot'
    Keys plus Left Right minus
    Keys alt+a
    Window $reader 'Noise Analysis'
    Keys alt+a
}

end=$((SECONDS + 60 * minutes)) rounds=0 first=''
while [ $SECONDS -lt $end ]; do
    Round
    rounds=$((rounds + 1))
    if [ -z "$first" ] && [ $SECONDS -ge 60 ]; then
        first="$(Resident $recorder) $(Resident $reader)"

    fi
    [ -z "$first" ] || printf '%d %d %d\n' $SECONDS "$(Resident $recorder)" "$(Resident $reader)" >>memory
done
import -window root "$root/build/soak.png"
read -r firstRecorder firstReader <<<"$first"
Growth() {
    awk -v first="$1" -v column="$2" '$column > max { max = $column } END { print max - first }' memory
}
recorderGrowth=$(Growth "$firstRecorder" 2) readerGrowth=$(Growth "$firstReader" 3)
Say "$minutes minutes, $rounds rounds of readings and plots, $(wc -l <soak.csv) lines recorded." \
    "Memory after the first minute: $firstRecorder and $firstReader KiB; growth since:" \
    "$recorderGrowth and $readerGrowth KiB."
[ "$recorderGrowth" -le 1024 ] && [ "$readerGrowth" -le 1024 ]
