#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# try-killed-saving.sh [N]: kills programs that save a block with its conditions and a configuration
# over and over, each time with other contents, N times at random moments, 50 without N. Each file has
# to be one of those versions to the last byte, and conditions of another version must not be used.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

program=${VX3260_CLI:-}
if [ -z "$program" ]; then
    InstallMissing "${buildPackages[@]}"
    Build debug vx3260-cli
    program=$PWD/build/debug/bin/vx3260-cli
fi
program=$(realpath "$program")
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
versions=60

# Script FILE...: saves each version of the block to the first name and of the configuration to the
# second one; %d is the version's number.
Script() {
    local version
    for ((version = 1; version <= versions; version++)); do
        # shellcheck disable=SC2059 # the names are formats
        printf "set mode mode=power-down\nset filter word=%d\nset mode mode=continuous\n\
read main --count 12 --force --output $1\nsave --force $2\n" \
            $((12 + version)) "$version" "$version"
    done
}

# What a configuration sets; its comments name the time.
Settings() {
    grep -v '^#' "$1"
}

# VersionOf VERSIONS FILE: the number of the version that the file is.
VersionOf() {
    awk -v sum="$(sha256sum <"$2")" '$0 == sum { print NR; exit }' "$1"
}

mkdir "$folder/all"
Script "$folder/all/%d.dat" "$folder/all/%d.vx3260" >"$folder/script"
Logged "$folder/log" "$program" --simulated script "$folder/script"
for ((version = 1; version <= versions; version++)); do
    sha256sum <"$folder/all/$version.dat" >>"$folder/blocks"
    Settings "$folder/all/$version.vx3260" >"$folder/settings"
    sha256sum <"$folder/settings" >>"$folder/configurations"
done

# Wrong WHAT: about the run that is being looked at.
Wrong() {
    Say "Run $number: $1"
    wrong=$((wrong + 1))
}

CheckBlock() {
    local shown
    if [ -z "$(VersionOf "$folder/blocks" block.dat)" ]; then
        Wrong 'the block is no version of it'
    fi
    if ! python3 -m json.tool block.dat.json >/dev/null; then
        Wrong 'the conditions are not complete'
    fi
    shown=$("$program" noise main block.dat --force 2>&1) || Wrong 'the block cannot be analysed'
    if [[ "$shown" == *'other codes'* ]]; then
        apart=$((apart + 1))
    elif ! cmp -s <(sha256sum <block.dat | cut -d' ' -f1) \
        <(python3 -c 'import json; print(json.load(open("block.dat.json"))["codes"]["sha256"])'); then
        Wrong 'conditions of another block are used'
    fi
}

total=${1:-50} apart=0 wrong=0 early=0 left=0
place=$folder/place
for ((number = 1; number <= total; number++)); do
    rm -rf "$place"
    mkdir "$place"
    cd "$place"
    Script block.dat bench.vx3260 >"$folder/script"
    "$program" --simulated script "$folder/script" >/dev/null 2>&1 &
    sleep "0.$((RANDOM % 30))$((RANDOM % 10))"
    kill -9 $! 2>/dev/null || true
    wait $! 2>/dev/null || true
    left=$((left + $(find . -type f ! -name block.dat ! -name block.dat.json ! -name bench.vx3260 | wc -l)))
    if [ ! -f bench.vx3260 ]; then
        early=$((early + 1))
        continue
    fi
    CheckBlock
    Settings bench.vx3260 >"$folder/settings"
    [ -n "$(VersionOf "$folder/configurations" "$folder/settings")" ] ||
        Wrong 'the configuration is no version of it'
done
Say "Killed $total programs while they saved, $early before the first save; conditions of another" \
    "block, which are refused, $apart times; $left temporary files left; $wrong checks failed."
if [ $((early * 2)) -gt "$total" ]; then
    Say "Too many were killed before they saved anything; is the machine loaded?"
    exit 1
fi
[ "$wrong" -eq 0 ]
