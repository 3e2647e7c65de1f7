#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Reads blocks into a file on a disk that fails while they are saved, and records on a disk that
# fails in the middle: strace makes each of the system calls fail in each way that a disk does. Says
# where something is lost that should not be.
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

# A recording: the call that fails, of which file, from which one on.
recordings='
write     r-001.csv 1+
write     r-001.csv 2+
write     r-001.csv 6+
write     r-002.csv 1+
write     r-002.csv 3+
fdatasync r-001.csv 1
fdatasync r-002.csv 1
openat    r-001.csv 1
openat    r-002.csv 1
'

# Values FILE...: the lines of recordings without comments and the time of the day.
Values() {
    cat "$@" 2>/dev/null | grep -v '^#\|^utc' | cut -d , -f 2- || true
}

# Record OPTION...: under strace with these options, in new folders, 1500 codes in three files.
Record() {
    rm -rf "$data"
    mkdir "$data"
    LC_ALL=C strace -f -o "$folder/trace" "$@" "$program" --simulated \
        record main --count 1500 --rotate 30s --output "$data/r.csv" 2>"$folder/err"
}

# CheckRecording TEXT: after a failure that the message names so.
CheckRecording() {
    [ "$code" -eq 7 ] || Wrong "the exit code is $code"
    grep -q "cannot write $data/$file: $1" "$folder/err" || Wrong "the message is another one"
    local recorded
    for recorded in "$data"/*.csv; do
        [ ! -s "$recorded" ] || [ -z "$(tail -c 1 "$recorded")" ] || Wrong "$recorded has a torn line"
    done
    # What the disk took is there, and nothing else.
    local lines
    lines=$(Values "$data"/*.csv | wc -l)
    cmp -s <(Values "$data"/*.csv) <(head -n "$lines" "$folder/recorded") ||
        Wrong "the lines are other ones"
    [ -z "$taken" ] || [ "$(stat -c %s "$data/$file")" -eq "$taken" ] ||
        Wrong "$taken bytes were taken, $(stat -c %s "$data/$file") are there"
}

TryRecord() {
    code=0 taken=''
    Record -P "$data/$file" -e trace="$call" -e inject="$call:error=$error:when=$from" || code=$?
    tried=$((tried + 1))
    [ "$call" != write ] ||
        taken=$(awk '/ write(\(| resumed)/ && !/INJECTED|unfinished/ { sum += $NF } END { print sum + 0 }' "$folder/trace")
    CheckRecording "${texts[$error]:-}"
}

# A disk that takes a part of a line: the largest size of a file stands for its end.
TryLimit() {
    reading=recording call=write error=EFBIG first=1 last=1 file=r.csv code=0 taken=''
    rm -rf "$data"
    mkdir "$data"
    (
        trap '' XFSZ
        ulimit -f "$1"
        LC_ALL=C "$program" --simulated record main --count 1500 --output "$data/r.csv" 2>"$folder/err"
    ) || code=$?
    tried=$((tried + 1))
    CheckRecording 'File too large'
    [ "$(stat -c %s "$data/r.csv")" -gt $(($1 * 1024 - 100)) ] || Wrong "the disk took more"
}

InstallMissing "${buildPackages[@]}" "${testPackages[@]}"
program=${VX3260_CLI:-}
if [ -z "$program" ]; then
    Build debug vx3260-cli
    program=$PWD/build/debug/bin/vx3260-cli
fi
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
Record -e trace=none
Values "$data"/*.csv >"$folder/recorded"
reading=recording first='' last=''
while read -r call file from; do
    [ -n "$call" ] || continue
    for error in ${errors[disk]}; do
        TryRecord
    done
done <<<"$recordings"
TryLimit 8
TryLimit 20
Say "Tried $tried failing system calls of a disk; $wrong checks failed."
[ "$wrong" -eq 0 ]
