#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Sets every named value of every field, and of a range its two ends, through lines that are dead,
# where each has to end with exit code 4 (no answer), and on a working board, where each has to
# succeed. Then lets the board go during commands, which must not report false values as a success.
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

# ExpectExit CODE COMMAND...: silent when the command ends with it, and for a failure names no answer.
ExpectExit() {
    local expected=$1 code=0 output
    shift
    output=$("$@" 2>&1) || code=$?
    if [ "$code" -eq "$expected" ] && { [ "$code" -eq 0 ] || [[ $output == *"no answer"* ]]; }; then
        return 0
    fi
    printf 'exit code %d, expected %d: %s\n%s\n' "$code" "$expected" "$*" "$output" >&2
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
# A board that goes during a command must not pass for one that stayed: a success means that all
# values are real. The last accesses are the ones that matter; bisection finds where they end.
SweepEnd() {
    local command=$1 healthy output accesses low=0 high=100000
    # shellcheck disable=SC2086  # words of a command
    healthy=$("$program" --simulated $command 2>/dev/null)
    while [ $((high - low)) -gt 1 ]; do
        accesses=$(((low + high) / 2))
        # shellcheck disable=SC2086
        if output=$("$program" --simulated --fault "board-gone=$accesses" $command 2>/dev/null) &&
            [ "$output" = "$healthy" ]; then
            high=$accesses
        else
            low=$accesses
        fi
    done
    for accesses in $(seq $((high > 700 ? high - 700 : 0)) 7 "$high"); do
        # shellcheck disable=SC2086
        if output=$("$program" --simulated --fault "board-gone=$accesses" $command 2>/dev/null) &&
            [ "$output" != "$healthy" ]; then
            printf 'success with false values: board-gone=%d %s\n' "$accesses" "$command" >&2
            failures=$((failures + 1))
        fi
        runs=$((runs + 1))
    done
}
SweepEnd registers
SweepEnd "registers filter mode"
SweepEnd "calibrate internal-zero"
SweepEnd "read main --count 2"
SweepEnd "read aux --count 2"
if [ "${#settings[@]}" -lt 60 ]; then
    printf 'only %d settings found in the help of set\n' "${#settings[@]}" >&2
    failures=$((failures + 1))
fi
printf 'Dead lines: %d settings, %d runs, %d failures.\n' "${#settings[@]}" "$runs" "$failures"
[ "$failures" -eq 0 ]
