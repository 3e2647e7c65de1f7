#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes a zip with the programs for 64-bit Windows, and one with their sources: builds them, and once
# the libraries that they are linked with, runs their tests under wine and goes through the main job
# with what is in the zip.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

preset=windows-programs
build=build/$preset

BuildPrograms() {
    if [ -f "$build/CMakeCache.txt" ] && ! grep -qF "$libraries" "$build/CMakeCache.txt"; then
        Say "Other libraries than the last time: building everything anew ..."
        rm -rf "$build"
    fi
    Build $preset all -DCMAKE_FIND_ROOT_PATH="$libraries"
}

# InDisplay COMMAND...: in a display made for it.
InDisplay() {
    xvfb-run -a -s '-screen 0 1280x1024x24' scripts/with-window-manager.sh "$@"
}

# The log's last line decides; wine's exit code does not.
RunTests() {
    local tests log
    for tests in core files cli forms; do
        Say "Running tests-$tests under wine ..."
        log=$build/tests-$tests.log
        InDisplay timeout 600 wine "$build/bin/tests-$tests.exe" --gtest_brief=1 >"$log" 2>&1 ||
            ShowEnd "$log"
        grep -q '^\[  PASSED  \]' "$log" || ShowEnd "$log"
    done
}

# Pack FOLDER: as a zip beside it.
Pack() {
    (cd "$(dirname "$1")" && rm -f "$1.zip" && zip -qr "$1.zip" "$(basename "$1")")
}

# The folder with the programs.
StagePrograms() {
    local folder=$1 program
    rm -rf "$folder"
    mkdir -p "$folder"
    for program in vx3260-eval vx3260-cli; do
        x86_64-w64-mingw32-strip -o "$folder/$program.exe" "$build/bin/$program.exe"
    done
    cp LICENSE "$folder/LICENSE"
    cp -r "$libraries/licences" "$folder/licences"
    mkdir "$folder/licences/boost" "$folder/licences/eigen"
    cp /usr/share/doc/libboost-dev/copyright "$folder/licences/boost"
    cp /usr/share/doc/libeigen3-dev/copyright "$folder/licences/eigen"
    sed 's/$/\r/' docs/windows-readme.txt >"$folder/README.txt"
    printf '@start "" "%%~dp0vx3260-eval.exe" --simulated\r\n' >"$folder/Simulated board.cmd"
}

# The folder with what they were built from, which goes with them.
StageSources() {
    local folder=$1
    rm -rf "$folder"
    mkdir -p "$folder"
    tar --exclude=./build --exclude=./.git -czf "$folder/$name.tar.gz" .
    cp "$libraries"/sources/* "$folder"
    tar -C "$libraries/include" -czf "$folder/cli11.tar.gz" CLI
    tar -C /usr/include -czf "$folder/eigen.tar.gz" eigen3
    tar -C /usr/include -czf "$folder/boost.tar.gz" boost
}

InstallMissing "${windowsProgramPackages[@]}"
UseWine
GiveWineFonts
rm -f build/vx3260-eval-*-windows*.zip
libraries=$(scripts/build-windows-libraries.sh)
BuildPrograms
RunTests

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' "$build/CMakeCache.txt")
name=vx3260-eval-$version-windows
programs=$PWD/$build/$name sources=$PWD/$build/$name-sources
StagePrograms "$programs"
Pack "$programs"
InDisplay scripts/try-windows-programs.sh "$programs.zip" \
    "$build/tests/parllio/whole/parllio.dll" "$build/pictures"
StageSources "$sources"
Pack "$sources"
mv "$programs.zip" "$sources.zip" build
Say "The programs are in build/$name.zip, their sources in build/$name-sources.zip, pictures of"
Say "them in $build/pictures."
