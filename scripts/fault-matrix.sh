#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs every command that reaches a board on the simulated one with every fault, for both converters:
# each has to end within a number of port accesses, with an exit code that fits, a message where it
# fails, no false values as a success, and all files as they were or completely new.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${buildPackages[@]}" "${testPackages[@]}"
program=${VX3260_FAULT_MATRIX:-}
if [ -z "$program" ]; then
    Build debug fault-matrix
    program=build/debug/bin/fault-matrix
fi
# A file is on the disk when a command ends; in memory that takes no time.
folder=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
trap 'rm -r "$folder"' EXIT

parts=$(nproc)
running=()
for ((part = 0; part < parts; part++)); do
    mkdir "$folder/$part"
    timeout 600 "$program" "$folder/$part" "$part" "$parts" >"$folder/$part.log" &
    running+=($!)
done
failed=0
for ((part = 0; part < parts; part++)); do
    wait "${running[part]}" || failed=1
    grep -q '^RUNS' "$folder/$part.log" ||
        Say "This did not end: $(tail -n 1 "$folder/$part.log")"
done
awk '/^RUNS/ {
    runs += $2; wrong += $4; commands = $6; faults = $8; nearest = $10 > nearest ? $10 : nearest
}
END {
    printf "Fault matrix: %d runs of %d commands with %d faults, up to %.0f %% of the accesses " \
        "allowed; %d runs failed.\n", runs, commands, faults, nearest * 100, wrong
}' "$folder"/*.log >&2
[ "$failed" -eq 0 ]
