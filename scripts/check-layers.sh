#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when a file under src/ includes one from a higher floor, from another folder of its own
# floor, or, in a layer without Qt, one of Qt's headers.
set -euo pipefail
cd "$(dirname "$0")/.."

# Folder, floor, and whether it may use Qt.
layers='
numbers 1 plain
link 2 plain
files 2 qt
simulator 3 plain
app 3 plain
ports 4 plain
platform 4 plain
acquisition 4 plain
ui 4 qt
analysis 5 qt
forms/config 6 qt
forms/data 6 qt
cli 6 qt
forms/shell 7 qt
'
# The half of analysis/ that may use Qt.
formFiles='^analysis/[A-Za-z]*Form\\.'

grep -rnE '^#include' src --include='*.h' --include='*.cpp' --include='*.h.in' |
    awk -v layers="$layers" -v formFiles="$formFiles" '
    BEGIN {
        count = split(layers, words, /[ \n]+/)
        for (i = 1; i <= count; i++) {
            if (words[i] ~ /^[a-z]/ && words[i + 1] ~ /^[0-9]$/) {
                floor[words[i]] = words[i + 1]
                qt[words[i]] = words[i + 2]
            }
        }
    }
    function FolderOf(path,    parts, n, two) {
        n = split(path, parts, "/")
        two = parts[1] "/" parts[2]
        return n > 2 && two in floor ? two : (n > 1 ? parts[1] : "")
    }
    {
        match($0, /^src\/[^:]+/)
        file = substr($0, 5, RLENGTH - 4)
        from = FolderOf(file)
        if (from == "") next   # the programs may include everything
        if (!(from in floor)) { print file ": its folder has no floor"; bad = 1; next }
        plain = qt[from] == "plain" || (from == "analysis" && file !~ formFiles)
        if (plain && $0 ~ /#include <Q/) { print $0 ": no Qt here"; bad = 1 }
        if (match($0, /"[^"]+"/) == 0) next
        to = FolderOf(substr($0, RSTART + 1, RLENGTH - 2))
        if (to == "" || to == from) next
        if (!(to in floor) || floor[to] >= floor[from]) {
            print $0 ": " from " must not include " to
            bad = 1
        }
    }
    END { exit bad }'
