#!/usr/bin/env bash
# Checks the sources' format, their layers and the scripts, then runs clang-tidy over what the
# debug build compiles of src/. Installs what it needs. "--fast" leaves clang-tidy out.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${buildPackages[@]}" "${testPackages[@]}" "${stylePackages[@]}"

failed=0
mapfile -t sources < <(find src tests bench -name '*.h' -o -name '*.cpp')
clang-format --dry-run -Werror "${sources[@]}" || failed=1
scripts/check-layers.sh || failed=1
shellcheck -x run.sh test.sh .ci/run scripts/*.sh || failed=1

if [ "${1:-}" != --fast ]; then
    Build debug
    # What is compiled here; sources made by uic and moc are not ours to tidy.
    sed -n 's/^ *"file": "\(.*\)".*/\1/p' build/debug/compile_commands.json |
        grep "^$PWD/src/" |
        xargs -P "$(nproc)" -n 2 clang-tidy -p build/debug --quiet 2>/dev/null || failed=1
fi

[ "$failed" -eq 0 ] || Say "The style checks failed."
exit "$failed"
