#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Compares docs/man/ with what the programs say of themselves: the commands, their words and options
# with the names or choices of values, the fields that can be set, the faults and the exit codes.
# Where pandoc is installed, makes the pages and lets groff look for faults in them.
# Usage: check-manual.sh [FOLDER-OF-PROGRAMS]
set -euo pipefail
programs=$(realpath "${1:-$(dirname "$0")/../build/release/bin}")
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${documentPackages[@]}"
failures=0
facts=0

# Both lists have lines such as "read: -o,--output FILE", "set: register mode|filter", "exit 4".

# Of the lines of registers and, indented, their fields: a field's begins with its register.
# shellcheck disable=SC2016  # $0 is awk's
fieldFunction='
    function Field(line) {
        if (line ~ /^ /) return register line
        register = line
        return line
    }'

# FactsOfHelp PROGRAM
FactsOfHelp() {
    local help=--help-all
    [ "${1##*/}" = vx3260-cli ] || help=--help
    "$1" "$help" | awk "$fieldFunction"'
        # "N:INT in [1 - 9]=5" is N, "TEXT:{a,b}=a" is a|b, a positional of type TEXT has its name only.
        function Value(text,    choices) {
            if (match(text, /:\{[^}]*\}/)) {
                choices = substr(text, RSTART + 2, RLENGTH - 3)
                gsub(/,/, "|", choices)
                return " " choices
            }
            sub(/:INT.*/, "", text)
            if (text != "FIELD=VALUE") sub(/=.*/, "", text)
            return text ~ /^(TEXT|REQUIRED|Needs:|Excludes:)?$/ ? "" : " " text
        }
        /^Subcommands:/ { inCommands = 1; next }
        /^Exit codes:/ { inCodes = 1; next }
        inCodes && /^  [0-9]/ { print "exit " $1; next }
        inCommands && /^[a-z]+$/ { command = $0 ": "; print $0; next }
        /^  What there is/ { inFields = 1; next }
        /^$/ { inFields = 0 }
        inFields { sub(/^    /, ""); print command Field($0); next }
        /^ *Positionals:$/ || /^ *Options:$/ { next }
        match($0, /^(  |    )[-A-Za-z]/) && (command == "") == (RLENGTH == 3) {
            text = substr($0, RLENGTH)
            sub(/  +.*/, "", text)
            name = value = text
            sub(/ .*/, "", name)
            sub(/^[^ ]* ?/, "", value)
            sub(/ .*/, "", value)
            print command name Value(value)
        }'
    if [ "$help" = --help-all ]; then
        "$1" --simulated --fault list | awk '{ print "fault " $1 }'
    fi
}

# FactsOfManual FILE: terms of its definition lists, and what is between ``` marks.
FactsOfManual() {
    awk "$fieldFunction"'
        /^# / { part = substr($0, 3); command = "" }
        /^## / { command = substr($0, 4) ": "; print substr($0, 4) }
        /^```/ { inFields = !inFields; next }
        inFields { print command Field($0) }
        /^: / && (part == "COMMANDS" || part == "OPTIONS") {
            gsub(/[`*]/, "", before)
            if (before ~ /^[a-z]+: /) sub(/:/, "", before)
            gsub(/, /, ",", before)
            print command before
        }
        /^: / && (part == "EXIT STATUS" || part == "FAULTS") {
            gsub(/[`,]/, "", before)
            count = split(before, names, " ")
            for (i = 1; i <= count; i++) print (part == "FAULTS" ? "fault " : "exit ") names[i]
        }
        { before = $0 }' "$1"
}

# CheckProgram NAME
CheckProgram() {
    local manual=docs/man/$1.md help text
    help=$(FactsOfHelp "$programs/$1" | sort)
    text=$(FactsOfManual "$manual" | sort)
    [ "$1" = vx3260-cli ] || text=$(grep -v '^exit ' <<<"$text") # Its help has no exit codes.
    facts=$((facts + $(wc -l <<<"$help")))
    local line
    while IFS= read -r line; do
        echo "missing in $manual: $line"
        failures=$((failures + 1))
    done < <(comm -23 <(echo "$help") <(echo "$text"))
    while IFS= read -r line; do
        echo "missing in the help of $1: $line"
        failures=$((failures + 1))
    done < <(comm -13 <(echo "$help") <(echo "$text"))
    if command -v pandoc >/dev/null && command -v groff >/dev/null; then
        local complaints
        complaints=$(pandoc -s -t man "$manual" | groff -ww -man -Tutf8 -z 2>&1)
        if [ -n "$complaints" ]; then
            echo "$manual as a page: $complaints"
            failures=$((failures + 1))
        fi
    fi
}

CheckProgram vx3260-cli
CheckProgram vx3260-eval
if [ "$facts" -lt 150 ]; then
    echo "only $facts facts found in the help"
    failures=$((failures + 1))
fi
printf 'Manual: %d commands, options, values and codes compared, %d differences.\n' \
    "$facts" "$failures"
[ "$failures" -eq 0 ]
