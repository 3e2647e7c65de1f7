#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes a release of the present commit, in a clean clone below build/release-files/: everything that
# .ci/run checks and what takes too long for it, then the Debian packages, the programs for Windows,
# the handbook, and checksums of all. Takes hours; "--files" leaves out the checks.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

RequireCleanTree release
version=$(ProjectVersion)
if [ -z "$(ReleaseDate)" ]; then
    Say "CHANGELOG.md has no section \"## $version (date)\"."
    exit 1
fi
files=$PWD/build/release-files
clone=$files/clone
rm -rf "$files"
mkdir -p "$files"
git clone -q . "$clone"
cd "$clone"

Step() {
    local start=$SECONDS
    Say "== $*"
    "$@" || { Say "The release stops here: $* failed."; exit 1; }
    Say "== $* took $((SECONDS - start)) s"
}

if [ "${1:-}" != --files ]; then
    Step .ci/run
    Step scripts/build-plain.sh --tests
    Step scripts/test-arm64.sh
    Step scripts/test-parport-qemu.sh
    Step scripts/test-lines-qemu.sh
    Step scripts/try-killed-recording.sh 300
    Step scripts/try-killed-saving.sh 300
    Step scripts/fuzz.sh 1200
    Step scripts/monkey.sh 1200
    Step scripts/try-recorded-day.sh 2h
    Step scripts/bench.sh
fi
Step scripts/build-deb.sh
Step scripts/try-packages.sh
Step scripts/build-windows.sh

mv build/deb/*.deb build/deb/*.dsc build/deb/*.tar.xz build/vx3260-eval-*-windows* "$files"
tar -C build/windows-programs/share/vx3260-eval --transform "s/^handbook/vx3260-handbook-$version/" \
    -czf "$files/vx3260-handbook-$version.tar.gz" handbook
cp CHANGELOG.md "$files"
cd "$files"
rm -rf "$clone"
sums=$(sha256sum -- *)
printf '%s\n' "$sums" | tee SHA256SUMS
Say "Version $version is in build/release-files/, with its checksums."
