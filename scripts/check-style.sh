#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks the sources' format, licence lines and layers, the documents' links and the scripts, then
# runs clang-tidy over what clang compiles of src/. Installs what it needs. "--fast" leaves clang-tidy out.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${sanitizerPackages[@]}" "${stylePackages[@]}"

failed=0
mapfile -t sources < <(find src tests robustness bench -name '*.h' -o -name '*.cpp')
clang-format --dry-run -Werror "${sources[@]}" || failed=1
mapfile -t unlicensed < <(git ls-files '*.cpp' '*.h' '*.h.in' '*.rc.in' '*.sh' '*.cmake' \
    '*CMakeLists.txt' '*.ui' '*.qrc' '*.manifest.in' '*.nsi' '*.lua' 'docs/*.css' 'docs/*.html' \
    'packaging/linux/*.xml.in' 'packaging/linux/completions/*' .ci/run |
    xargs grep -L 'SPDX-License-Identifier: GPL-3.0-or-later')
if [ ${#unlicensed[@]} -gt 0 ]; then
    Say "No licence line at the beginning of: ${unlicensed[*]}"
    failed=1
fi
while IFS=: read -r file link; do
    link=${link#*(}
    link=${link%%[#)]*}
    if [ ! -e "$(dirname "$file")/$link" ]; then
        Say "$file links $link, which is not there."
        failed=1
    fi
done < <(git grep -o ']([^):]*)' '*.md')
scripts/check-layers.sh || failed=1
shellcheck -x run.sh test.sh .ci/run scripts/*.sh packaging/linux/completions/*.bash || failed=1

if [ "${1:-}" != --fast ]; then
    Build sanitizers vx3260-eval
    # The files that include a layer's sources, so that its headers are read once; sources made by
    # uic and moc are not ours to tidy.
    sed -n 's/^ *"file": "\(.*\)".*/\1/p' build/sanitizers/compile_commands.json |
        grep "^$PWD/build/sanitizers/src/.*/Unity/" |
        xargs -P "$(nproc)" -n 1 clang-tidy -p build/sanitizers --quiet \
            --checks=-bugprone-suspicious-include 2>/dev/null || failed=1
fi

[ "$failed" -eq 0 ] || Say "The style checks failed."
exit "$failed"
