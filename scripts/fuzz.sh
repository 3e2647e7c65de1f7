#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Feeds random data files, conditions files, configurations, recordings and scripts to their parsers,
# which must neither crash nor hang nor break what the targets in robustness/fuzz/ require of them.
# Usage: fuzz.sh [SECONDS [SEED]]   SECONDS in all, 60 without; new inputs are kept in build/fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

seconds=${1:-60} seed=${2:-3260}
InstallMissing "${sanitizerPackages[@]}"
Build sanitizers fuzz
targets=()
for corpus in robustness/fuzz/corpus/*; do
    targets+=("${corpus##*/}")
done
jobs=$(nproc)
each=$((seconds * jobs / ${#targets[@]}))

# Fuzz TARGET: with what earlier runs kept first, to which libFuzzer adds.
Fuzz() {
    local target=$1 folder=build/fuzz/$1 options=()
    local dictionary=robustness/fuzz/$target.dict
    [ ! -f "$dictionary" ] || options+=("-dict=$dictionary")
    mkdir -p "$folder/corpus"
    rm -f "$folder"/found-*
    build/sanitizers/bin/fuzz-"$target" -seed="$seed" -max_total_time="$each" -timeout=10 \
        -rss_limit_mb=1024 -max_len=4096 -print_final_stats=1 -artifact_prefix="$folder/found-" \
        "${options[@]}" "$folder/corpus" "robustness/fuzz/corpus/$target" >"$folder/log" 2>&1 ||
        touch "$folder/failed"
}

rm -f build/fuzz/*/failed
export -f Fuzz
export seed each
printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I '{}' bash -c 'Fuzz {}'
tried=0 failed=0
for target in "${targets[@]}"; do
    folder=build/fuzz/$target
    count=$(sed -n 's/^stat::number_of_executed_units: *//p' "$folder/log")
    tried=$((tried + ${count:-0}))
    [ -f "$folder/failed" ] || continue
    failed=$((failed + 1))
    grep -v '^\(#\|INFO\|stat::\|[[:space:]]*NEW_\)' "$folder/log" | head -n 40 >&2
    for found in "$folder"/found-*; do
        [ ! -e "$found" ] || Say "To repeat it: build/sanitizers/bin/fuzz-$target $found"
    done
    ShowEnd "$folder/log" || true
done
Say "Fuzzing: $tried inputs to ${#targets[@]} targets (${targets[*]}), $each s each, seed $seed;" \
    "$failed targets failed."
[ "$failed" -eq 0 ]
