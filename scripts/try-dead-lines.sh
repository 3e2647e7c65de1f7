#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Sets every value of every field through lines that are dead, where each has to end with exit
# code 4 (no answer), and on a board that is there, where each has to succeed.
# Usage: try-dead-lines.sh VX3260-CLI
set -euo pipefail
program=$1

# REGISTER FIELD=VALUE, a line each, from the program's own list; of a range its two ends.
Settings() {
    "$program" set --help | awk '
        !/^  / { next }
        /^  [a-z]/ { register = $1; next }
        /^    [a-z0-9-]+=/ && register != "" {
            split($1, word, "=")
            count = $2 == "to" ? split(word[2] "|" $3, values, "|") : split(word[2], values, "|")
            for (i = 1; i <= count; i++) print register, word[1] "=" values[i]
        }'
}

# ExpectExit CODE COMMAND...: says nothing when the command ends with it.
ExpectExit() {
    local expected=$1 code=0 output
    shift
    output=$("$@" 2>&1) || code=$?
    [ "$code" -ne "$expected" ] || return 0
    printf 'exit code %d in place of %d: %s\n%s\n' "$code" "$expected" "$*" "$output" >&2
    failures=$((failures + 1))
}

# Some registers can be written in power-down only, and a pin's level is set only of an output.
preparation='set mode mode=power-down
set io-control p3-direction=output p4-direction=output'
runs=0
failures=0
faults=(board-gone=0 dout-stuck-low dout-stuck-high)
mapfile -t settings < <(Settings)
for setting in "${settings[@]}"; do
    read -r register assignment <<<"$setting"
    for fault in "${faults[@]}"; do
        ExpectExit 4 "$program" --simulated --fault "$fault" set "$register" "$assignment"
    done
    ExpectExit 0 "$program" --simulated script - <<<"$preparation"$'\n'"set $register $assignment"
    runs=$((runs + ${#faults[@]} + 1))
done
for fault in "${faults[@]}"; do
    for command in registers "calibrate internal-zero" "read main" "noise aux"; do
        # shellcheck disable=SC2086  # words of a command
        ExpectExit 4 "$program" --simulated --fault "$fault" $command
        runs=$((runs + 1))
    done
done
# A board that goes at any access of `registers`, some 600, must not pass for a whole one.
for accesses in $(seq 0 7 599); do
    ExpectExit 4 "$program" --simulated --fault "board-gone=$accesses" registers
    runs=$((runs + 1))
done
if [ "${#settings[@]}" -lt 60 ]; then
    printf 'only %d settings found in the help of set\n' "${#settings[@]}" >&2
    failures=$((failures + 1))
fi
printf 'Dead lines: %d settings, %d runs, %d failures.\n' "${#settings[@]}" "$runs" "$failures"
[ "$failures" -eq 0 ]
