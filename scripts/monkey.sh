#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Random clicks, keys and texts over all forms, on the simulated board with faults that come and go,
# under the sanitizers. As root it works as the user nobody: file dialogs really write.
# Usage: monkey.sh [SECONDS [SEED [OPTION...]]]; without, 60 s with any seed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${sanitizerPackages[@]}"
Build sanitizers monkey
folder=$(mktemp -d)
log=$PWD/build/monkey.log
trap 'chmod -R u+w "$folder" || true; rm -rf "$folder"' EXIT
cp build/sanitizers/bin/monkey "$folder"
user=()
if [ "$(id -u)" -eq 0 ]; then
    chown -R nobody "$folder"
    user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
fi

# Play SECONDS SEED [OPTION...]: if that fails, shows the last actions and what came of them.
Play() {
    local seconds=$1 seed=$2
    if ! (cd "$folder" && env HOME="$folder" TMPDIR="$folder" XDG_RUNTIME_DIR="$folder" \
        LC_ALL=C.UTF-8 ASAN_OPTIONS=handle_abort=1 UBSAN_OPTIONS=print_stacktrace=1 \
        "${user[@]}" "$folder/monkey" --seconds "$seconds" --seed "$seed" "${@:3}") 2>"$log"; then
        awk -v seed="$seed" '/does not support/ { next } { lines[++count] = $0 }
            /^- / { action[++actions] = count } /^round with seed/ { seed = $4 }
            END {
                for (i = action[actions > 30 ? actions - 29 : 1]; i <= count; i++) print lines[i]
                print "Again: scripts/monkey.sh 60 " seed " --rounds 1"
            }' "$log" >&2
        return 1
    fi
}

Play "${1:-60}" "${2:-$RANDOM$RANDOM}" "${@:3}"
