#!/usr/bin/env bash
# Makes the zip with the programs for 64-bit Windows: builds them, and once the libraries that they
# are linked with, runs their tests under wine and goes through the main job with what is in the zip.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

preset=windows-programs
build=build/$preset

BuildPrograms() {
    local libraries=$1
    if [ -f "$build/CMakeCache.txt" ] && ! grep -qF "$libraries" "$build/CMakeCache.txt"; then
        Say "Other libraries than the last time: building everything anew ..."
        rm -rf "$build"
    fi
    Build $preset all -DCMAKE_FIND_ROOT_PATH="$libraries"
}

RunTests() {
    local tests
    for tests in core files cli forms; do
        Say "Running tests-$tests under wine ..."
        timeout 900 wine "$build/bin/tests-$tests.exe" --gtest_brief=1 >&2
    done
}

# The folder that is packed, and its name.
Stage() {
    local libraries=$1 folder=$2 program
    rm -rf "$folder"
    mkdir -p "$folder"
    for program in vx3260-eval vx3260-cli; do
        x86_64-w64-mingw32-strip -o "$folder/$program.exe" "$build/bin/$program.exe"
    done
    cp LICENSE "$folder/LICENSE"
    cp -r "$libraries/licences" "$folder/licences"
    sed 's/$/\r/' docs/windows-readme.txt >"$folder/README.txt"
    printf 'start "" "%%~dp0vx3260-eval.exe" --simulated\r\n' >"$folder/Simulated board.cmd"
}

InstallMissing "${windowsProgramPackages[@]}"
UseWine
GiveWineFonts
libraries=$(scripts/build-windows-libraries.sh)
BuildPrograms "$libraries"
RunTests

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' "$build/CMakeCache.txt")
name=vx3260-eval-$version-windows-x64
Stage "$libraries" "$build/$name"
(cd "$build" && rm -f "$name.zip" && zip -qr "$name.zip" "$name")
xvfb-run -a -s '-screen 0 1280x1024x24' \
    scripts/try-windows-programs.sh "$build/$name.zip" "$build/tests/parllio/whole/parllio.dll" "$build/pictures"
mv "$build/$name.zip" "build/$name.zip"
Say "The programs are in build/$name.zip, pictures of them in $build/pictures."
