#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Reads blocks into a file on a disk that fails while they are saved: strace makes each of the
# system calls fail in each way that a disk does. Says where something is lost that should not be.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

# The reading; the call that fails, from which to which use for saving; how; where the codes are
# then; the exit code. An old file is replaced by one write, a linkat to its name, which is taken,
# a linkat to another name and a rename. A new file is tried with two writes and sixteen names.
cases='
complete   write     1  1 disk  beside    7
complete   write     1  3 disk  temporary 7
complete   write     1  5 disk  nowhere   7
complete   fdatasync 1  1 disk  beside    7
complete   fdatasync 1  2 disk  temporary 7
complete   fdatasync 1  3 disk  nowhere   7
complete   fdatasync 1  9 other replaced  0
complete   linkat    1  1 disk  beside    7
complete   linkat    2  2 disk  replaced  0
complete   linkat    2 17 disk  beside    7
complete   linkat    1 17 disk  temporary 7
complete   linkat    1 33 disk  nowhere   7
complete   rename    1  9 disk  beside    7
incomplete rename    1  9 disk  beside    4
incomplete write     1  1 disk  temporary 4
incomplete write     1  4 disk  nowhere   7
incomplete fdatasync 1  1 disk  temporary 4
incomplete fdatasync 1  2 disk  nowhere   7
incomplete linkat    1 16 disk  temporary 4
incomplete linkat    1 32 disk  nowhere   7
conditions fdatasync 3  3 disk  replaced  7
conditions linkat    3 40 disk  replaced  7
'
declare -A errors=([disk]='EIO ENOSPC EDQUOT' [other]='EINVAL EROFS EOPNOTSUPP')
declare -A texts=([EIO]='Input/output error' [ENOSPC]='No space left on device'
    [EDQUOT]='Disk quota exceeded')
declare -A commands=([complete]='--simulated' [incomplete]='--simulated --fault board-gone=60000'
    [conditions]='--simulated')
# The conditions are saved after the codes, and only where that is what is tried.
declare -A options=([complete]='--no-conditions' [incomplete]='--no-conditions' [conditions]='')
declare -A failing=([complete]='old.dat' [incomplete]='old.dat' [conditions]='old.dat.json')

# Read READING OPTION...: under strace with these options, into the old file of new folders.
Read() {
    rm -rf "$data" "$temporary"
    mkdir "$data" "$temporary"
    echo old >"$data/old.dat"
    # shellcheck disable=SC2086 # words
    TMPDIR=$temporary LC_ALL=C strace -o "$folder/trace" "${@:2}" "$program" \
        ${commands[$1]} read main --output "$data/old.dat" --force ${options[$1]} 2>"$folder/err"
}

# FirstWrite READING: which of the program's writes is the first one for saving.
FirstWrite() {
    Read "$1" -y -e trace=write || true
    awk -v data="<$data/" '{ writes++ } index($0, data) { print writes; exit }' "$folder/trace"
}

# Wrong WHAT: about the case that is being tried.
Wrong() {
    Say "$reading reading, $call fails with $error, use $first to $last: $1"
    cat "$folder/err" >&2
    wrong=$((wrong + 1))
}

Try() {
    local skipped=0 code=0 kept found pattern
    [ "$call" != write ] || skipped=$((firstWrite[$reading] - 1))
    Read "$reading" -e trace="$call" \
        -e inject="$call:error=$error:when=$((first + skipped))..$((last + skipped))" || code=$?
    tried=$((tried + 1))
    [ "$code" -eq "$expected" ] || Wrong "the exit code is $code"
    found=$(cd "$folder" && find data temporary -type f ! -path data/old.dat)
    case $place in
    replaced) pattern='' kept=$data/old.dat ;;
    beside) pattern='data/old.dat.??????' kept=$folder/$found ;;
    temporary) pattern='temporary/old.dat.??????' kept=$folder/$found ;;
    nowhere) pattern='' kept='' ;;
    esac
    # shellcheck disable=SC2053 # a pattern
    [[ $found == $pattern ]] || Wrong "the files beside the old one are: $found"
    [ "$place" = replaced ] || grep -qx old "$data/old.dat" || Wrong "the old file has changed"
    [ -z "$kept" ] || cmp -s "$kept" "$folder/$reading.dat" || Wrong "$kept has not the codes"
    [ -z "$kept" ] || grep -q " $kept\$" "$folder/err" || Wrong "$kept is not named"
    [ "$code" -ne 7 ] || grep -q "cannot write $data/${failing[$reading]}: ${texts[$error]:-}" "$folder/err" ||
        Wrong "the message is another one"
}

InstallMissing "${buildPackages[@]}" "${testPackages[@]}"
Build debug vx3260-cli
program=$PWD/build/debug/bin/vx3260-cli
RequireTools strace
if ! strace -o /dev/null true; then
    Say "strace cannot trace a program here; in a container, allow it ptrace."
    exit 1
fi

folder=$(mktemp -d "$PWD/build/failing-disk-XXXXXX")
trap 'rm -r "$folder"' EXIT
data=$folder/data temporary=$folder/temporary
declare -A firstWrite
for reading in complete incomplete conditions; do
    # shellcheck disable=SC2086 # words
    "$program" ${commands[$reading]} read main >"$folder/$reading.dat" 2>/dev/null ||
        true
    firstWrite[$reading]=$(FirstWrite "$reading")
done
tried=0 wrong=0
while read -r reading call first last kind place expected; do
    [ -n "$reading" ] || continue
    for error in ${errors[$kind]}; do
        Try
    done
done <<<"$cases"
Say "Tried $tried failing system calls of a disk; $wrong checks failed."
[ "$wrong" -eq 0 ]
