#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes a zip with the programs for 64-bit Windows, an installer with the same, and a zip with their
# sources: builds them, and once the libraries that they are linked with, runs their tests under wine
# and goes through the main job with what is in the zip and what the installer installs.
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
    # A folder that was configured before pandoc came has no handbook.
    [ -d "$build/share" ] || rm -f "$build/build.ninja"
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
    cp -r "$build/share/vx3260-eval/handbook" "$folder/handbook"
    printf '@start "" "%%~dp0vx3260-eval.exe" --simulated\r\n' >"$folder/Simulated board.cmd"
}

# What the uninstaller removes: each file and folder of what is installed.
Removals() {
    local folder="\$INSTDIR\\\\%P"
    (cd "$1" && find . -mindepth 1 -depth \( -type d -printf "RMDir \"$folder\"\n" \
        -o -printf "Delete \"$folder\"\n" \)) | tr / "\\\\"
}

MakeInstaller() {
    rm "$programs/Simulated board.cmd"
    Removals "$programs" >"$build/removals.nsh"
    Logged "$build/installer.log" makensis -WX -DVERSION="$version" -DSTAGE="$programs" \
        -DFILES="$PWD/$build/removals.nsh" -DICON="$PWD/src/icons/vx3260.ico" -DOUTPUT="$1" \
        packaging/windows/installer.nsi
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
MakeWineLikeWindows
rm -f build/vx3260-eval-*-windows*
libraries=$(scripts/build-windows-libraries.sh)
BuildPrograms
RunTests

version=$(ProjectVersion)
name=vx3260-eval-$version-windows
programs=$PWD/$build/$name sources=$PWD/$build/$name-sources
StagePrograms "$programs"
Pack "$programs"
MakeInstaller "$programs-installer.exe"
InDisplay scripts/try-windows-programs.sh "$programs.zip" "$programs-installer.exe" \
    "$build/tests/parllio/whole/parllio.dll" "$build/pictures"
StageSources "$sources"
Pack "$sources"
mv "$programs.zip" "$programs-installer.exe" "$sources.zip" build
Say "The programs are in build/$name.zip and build/$name-installer.exe, their sources in"
Say "build/$name-sources.zip, pictures of them in $build/pictures."
