# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the scripts: what has to be installed, and quiet building.
# shellcheck shell=bash disable=SC2034

headerPackages=(libboost-dev libeigen3-dev)
buildPackages=(g++ cmake ninja-build qt6-base-dev libqcustomplot-dev libcli11-dev libftdi1-dev
    pkgconf "${headerPackages[@]}")
runPackages=(qt6-wayland)
testPackages=(libgtest-dev fonts-dejavu-core libumockdev-dev sigrok-cli strace umockdev)
windowsTools=(g++-mingw-w64-x86-64-posix wine wine64 googletest)
windowsPackages=(g++ cmake ninja-build "${headerPackages[@]}" "${windowsTools[@]}")
windowsProgramPackages=("${buildPackages[@]}" "${windowsTools[@]}" qt6-base-dev-tools dpkg-dev
    fonts-dejavu-core nsis pandoc xvfb xauth openbox xdotool imagemagick zip unzip)
stylePackages=(clang-format clang-tidy shellcheck)
benchPackages=(libbenchmark-dev)
judgePackages=(python3-scipy)
plainPackages=(make)
sanitizerPackages=("${buildPackages[@]}" "${testPackages[@]}" "${benchPackages[@]}" clang
    libclang-rt-14-dev llvm)
arm64Packages=(g++-aarch64-linux-gnu cmake ninja-build "${headerPackages[@]}" googletest
    qemu-user-static)
desktopPackages=(appstream desktop-file-utils)
documentPackages=(pandoc groff-base linkchecker)
debPackages=(debhelper dpkg-dev lintian "${documentPackages[@]}")
packageTools=(autopkgtest debootstrap)
soakPackages=(xvfb xauth openbox xdotool imagemagick)
machinePackages=(qemu-system-x86 busybox-static)

Say() {
    printf '%s\n' "$*" >&2
}

# The version that CMake builds, and the date of its section in CHANGELOG.md.
ProjectVersion() {
    sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt
}

ReleaseDate() {
    sed -n "s/^## $(ProjectVersion) (\\(.*\\))\$/\\1/p" CHANGELOG.md
}

IsInstalled() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

AsRoot() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# InstallMissing PACKAGE...: installs what is not there yet; says nothing when all is.
InstallMissing() {
    neededPackages=("$@")
    command -v apt-get >/dev/null && command -v dpkg-query >/dev/null || return 0
    local package missing=()
    for package in "$@"; do
        IsInstalled "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        Say "Missing packages. As root, run: apt-get install ${missing[*]}"
        return 1
    fi
    Say "Installing ${missing[*]} ..."
    AsRoot apt-get -qq update &&
        AsRoot env DEBIAN_FRONTEND=noninteractive \
            apt-get -qq install --no-install-recommends "${missing[@]}" >/dev/null
}

NameNeededPackages() {
    Say "The build needs these packages (Debian's names; another distribution may call them"
    Say "differently): ${neededPackages[*]}"
}

# RequireTools TOOL...: where the packages could not be installed by InstallMissing.
RequireTools() {
    local tool
    for tool in "$@"; do
        if ! command -v "$tool" >/dev/null; then
            Say "There is no $tool."
            NameNeededPackages
            return 1
        fi
    done
}

# Programs for Windows run under wine, with a system folder of this project's own, which leaves the
# desktop's menus alone. The names of files have all letters, whatever the machine's language.
UseWine() {
    export WINEPREFIX=$PWD/build/wine WINEDEBUG=-all
    export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
    export LC_ALL=C.UTF-8
    RequireTools wine wineboot || return 1
    [ ! -f "$WINEPREFIX/system.reg" ] || return 0
    Say "Making a system folder for wine ..."
    mkdir -p "$WINEPREFIX"
    wineboot -u >"$WINEPREFIX/wineboot.log" 2>&1 || ShowEnd "$WINEPREFIX/wineboot.log"
}

# InWine COMMAND...: quietly.
InWine() {
    wine "$@" >"$WINEPREFIX/command.log" 2>&1 || ShowEnd "$WINEPREFIX/command.log"
}

# Wine takes itself for an older Windows than the programs need, and has none of the fonts that
# Windows has for dialogs and for figures.
MakeWineLikeWindows() {
    local pair key='HKCU\Software\Wine\Fonts\Replacements'
    for pair in 'MS Shell Dlg=DejaVu Sans' 'MS Shell Dlg 2=DejaVu Sans' \
        'Courier New=DejaVu Sans Mono'; do
        InWine reg add "$key" /v "${pair%=*}" /d "${pair#*=}" /f
    done
    InWine reg add 'HKCU\Software\Wine' /v Version /d win10 /f
}

# RequireCleanTree WHAT: fails where it would not be made of the present commit.
RequireCleanTree() {
    [ -n "$(git status --porcelain)" ] || return 0
    Say "The tree has changes that are not committed; the $1 would not be of any commit."
    return 1
}

# Resident PID: its memory, in KiB; nothing once it has ended.
Resident() {
    awk '/^VmRSS:/ { print $2 }' "/proc/$1/status" 2>/dev/null || true
}

# ShowEnd LOG: of something that failed.
ShowEnd() {
    tail -n 30 "$1" >&2
    Say "The whole of it is in $1."
    return 1
}

# Logged LOG COMMAND...: runs it; shows the end of what it says if it fails.
Logged() {
    "${@:2}" >"$1" 2>&1 || ShowEnd "$1"
}

# Build PRESET [TARGET [OPTION...]]: configures, with these options, and builds; says nothing when
# nothing is to do.
Build() {
    local preset=$1 directory=build/$1 target=${2:-all}
    local options=("${@:3}")
    local log
    RequireTools cmake ninja c++ || return 1
    if [ ! -f "$directory/build.ninja" ]; then
        Say "Configuring $directory ..."
        mkdir -p "$directory"
        log=$directory/configure.log
        if ! cmake --preset "$preset" "${options[@]}" >"$log" 2>&1; then
            cat "$log" >&2
            NameNeededPackages
            return 1
        fi
    fi
    if ninja -C "$directory" -n "$target" | grep -q 'no work to do'; then
        return 0
    fi
    Say "Building $directory ..."
    cmake --build --preset "$preset" --target "$target" >&2
}
