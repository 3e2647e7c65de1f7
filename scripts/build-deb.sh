#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the Debian packages of the present commit in build/deb/ and looks them over with lintian.
# Installs what is missing. The tree must be clean: packages are made of what is committed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

# The packages' version and date are those of the program.
DebianChangelog() {
    printf 'vx3260-eval (%s) unstable; urgency=medium\n\n' "$version"
    printf '  * The changes are listed in CHANGELOG.md.\n\n'
    printf ' -- %s  %s\n' "$(sed -n 's/^Maintainer: //p' debian/control)" \
        "$(date -u -R -d "$(ReleaseDate)")"
}

InstallMissing "${buildPackages[@]}" "${debPackages[@]}"
RequireCleanTree packages
version=$(ProjectVersion)
folder=build/deb
source=$folder/vx3260-eval-$version
rm -rf "$folder"
mkdir -p "$source"
git archive HEAD | tar -x -C "$source"
DebianChangelog >"$source/debian/changelog"
Say "Building the packages ..."
(cd "$source" && Logged ../build.log dpkg-buildpackage -uc -us)
rm -r "$source"
lintian --fail-on error,warning "$folder"/*.changes
Say "The packages are in $folder:"
(cd "$folder" && ls -- *.deb *.dsc)
