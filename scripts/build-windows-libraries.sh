#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds what the programs for 64-bit Windows are linked with, which Debian has for Linux only: Qt
# and QCustomPlot as static libraries, from Debian's source packages and of the versions that are
# installed here. Prints the folder, below ${VX3260_CACHE:-~/.cache/vx3260}. A complete build is
# reused, an interrupted one continued. Their licences and sources are there too.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

qtOptions=(-DBUILD_SHARED_LIBS=OFF -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF)
# What the programs do not use, does not build with this compiler, or would need a library more.
for feature in tabletevent sql network dbus xml opengl dynamicgl concurrent vulkan direct2d directwrite \
    directwrite3 icu system_zlib system_png system_jpeg system_freetype system_harfbuzz \
    system_pcre2; do
    qtOptions+=("-DFEATURE_$feature=OFF")
done

# The source packages, each with the version of the installed package that is built from it.
Sources() {
    local package
    for package in qt6-base-dev libqcustomplot-dev; do
        # shellcheck disable=SC2016  # dpkg-query's own variables
        dpkg-query -W -f='${source:Package}=${source:Version}\n' "$package"
    done
}

# Everything that changes the result; hashed into the folder's name. Raise the number after changing
# the steps below.
Ingredients() {
    echo 1
    Sources
    # shellcheck disable=SC2016
    dpkg-query -W -f='${Package}=${Version}\n' g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev \
        libcli11-dev
    printf '%s\n' "${qtOptions[@]}"
    cat cmake/WindowsToolchain.cmake
}

IsComplete() {
    [ -s "$folder/checksums" ] && (cd "$folder" && sha256sum --quiet --check checksums >&2)
}

# The sources come from where this machine has its packages from.
DownloadSources() {
    local sources
    mapfile -t sources < <(Sources)
    mkdir -p "$work"/{sources,lists/partial,cache/archives/partial}
    # shellcheck disable=SC2016  # apt-get's own variables
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u >"$work/sources.list"
    if [ ! -s "$work/sources.list" ]; then
        Say "The machine's package sources name none of Debian's. \"apt-get update\" reads them anew."
        return 1
    fi
    local apt=(apt-get -qq -o Dir::Etc::sourcelist="$work/sources.list" -o Dir::Etc::sourceparts=-
        -o Dir::State::lists="$work/lists" -o Dir::Cache="$work/cache"
        -o APT::Sandbox::User="$(id -un)")
    "${apt[@]}" update
    if ! (cd "$work/sources" && "${apt[@]}" source --download-only "${sources[@]}"); then
        Say "Are the installed packages the newest? \"apt-get update\" and \"apt-get upgrade\" see to it."
        return 1
    fi
}

# Unpack NAME: with Debian's patches, among them those for security.
Unpack() {
    [ ! -d "$work/$1" ] || return 0
    rm -rf "$work/$1.new"
    # The signature has been checked by apt-get, which has the keys.
    dpkg-source --no-check -x "$work/sources/$1"_*.dsc "$work/$1.new" >"$work/$1.log" 2>&1 ||
        ShowEnd "$work/$1.log"
    mv "$work/$1.new" "$work/$1"
}

# Compile NAME OPTION...: into the folder. On a terminal the compiler's progress is shown.
Compile() {
    local name=$1 build=$work/$1-build log=$work/$1.log
    shift
    if [ ! -f "$build/build.ninja" ]; then
        cmake -G Ninja -S "$work/$name" -B "$build" --toolchain "$PWD/cmake/WindowsToolchain.cmake" \
            -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$folder" \
            -DCMAKE_FIND_ROOT_PATH="$folder" "$@" >"$log" 2>&1 || ShowEnd "$log"
    fi
    if [ -t 2 ]; then
        cmake --build "$build" >&2
    else
        cmake --build "$build" >"$log" 2>&1 || ShowEnd "$log"
    fi
    cmake --install "$build" >"$log" 2>&1 || ShowEnd "$log"
}

BuildQt() {
    Unpack qt6-base
    Say "Building Qt for Windows, once: 15 to 40 minutes on two cores ..."
    Compile qt6-base "${qtOptions[@]}"
}

# Its build knows a shared library only.
BuildQCustomPlot() {
    Unpack qcustomplot
    sed -i -e 's/ SHARED / STATIC /' -e '/QCUSTOMPLOT_COMPILE_LIBRARY/d' \
        "$work/qcustomplot/CMakeLists.txt"
    Say "Building QCustomPlot for Windows ..."
    Compile qcustomplot -DCMAKE_INSTALL_LIBDIR=lib
}

# Headers are the same on every system, but beside them are those that are not.
CopyCli11() {
    mkdir -p "$folder/include" "$folder/share/cmake"
    cp -r /usr/include/CLI "$folder/include"
    cp -r /usr/share/cmake/CLI11 "$folder/share/cmake"
}

# Licences of all that ends up inside the programs, a folder for each.
CopyLicences() {
    local to=$folder/licences
    rm -rf "$to"
    mkdir -p "$to"/{qt,qcustomplot,cli11,gcc,mingw-w64,common-licenses}
    cp "$work/qt6-base/debian/copyright" "$work/qt6-base/LICENSES"/*.txt "$to/qt"
    rm "$to/qt/LicenseRef-Qt-Commercial.txt"
    # What Qt has inside, but for what it has for other systems.
    (cd "$work/qt6-base/src/3rdparty" &&
        find . -type d \( -name android -o -name gradle -o -name wasm -o -name xcb \) -prune -o \
            -type f \( -iname '*LICEN[CS]E*' -o -iname 'COPYING*' -o -iname 'COPYRIGHT*' \) \
            -exec cp --parents -t "$to/qt" {} +)
    cp "$work/qcustomplot/debian/copyright" "$work/qcustomplot/GPL.txt" "$to/qcustomplot"
    cp /usr/share/doc/libcli11-dev/copyright "$to/cli11"
    cp /usr/share/doc/gcc-mingw-w64-x86-64-posix/copyright "$to/gcc"
    cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$to/mingw-w64"
    cp -L /usr/share/common-licenses/* "$to/common-licenses"
}

InstallMissing "${windowsProgramPackages[@]}"
RequireTools apt-get dpkg-query dpkg-source x86_64-w64-mingw32-g++-posix
cache=${VX3260_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vx3260}
folder=$cache/windows-$(Ingredients | sha256sum | head -c 12)
work=$folder.build
mkdir -p "$cache"
exec {lock}>"$cache/lock"
flock "$lock"
if ! IsComplete; then
    rm -rf "$folder"
    mkdir -p "$work"
    if [ ! -f "$work/downloaded" ]; then
        Say "Downloading the sources of Qt and QCustomPlot (50 MB) ..."
        DownloadSources
        touch "$work/downloaded"
    fi
    BuildQt
    BuildQCustomPlot
    CopyCli11
    CopyLicences
    cp -r "$work/sources" "$folder"
    (cd "$folder" && find . -type f -print0 | xargs -0 sha256sum) >"$work/checksums"
    mv "$work/checksums" "$folder"
    rm -rf "$cache"/windows-*.build
    Say "Built, and kept in $folder."
fi
printf '%s\n' "$folder"
