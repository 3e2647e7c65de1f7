#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Tries the packages of build/deb/ in a new Debian without anything else: installs them, first the
# command line alone, runs both programs as an ordinary user, runs the packages' own tests, removes
# the packages and looks for what they leave behind. Takes some minutes, and root's permissions.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${packageTools[@]}"
folder=build/deb
packages=("$folder"/vx3260-{cli,eval}_"$(ProjectVersion)"_*.deb)
if [ ! -e "${packages[0]}" ] || [ ! -e "${packages[1]}" ]; then
    Say "There are no packages of this version. Run scripts/build-deb.sh first."
    exit 1
fi
root=$(mktemp -d /var/tmp/vx3260-root.XXXXXX)
chmod 755 "$root"
# The system's /proc is not part of what is removed.
CleanUp() {
    AsRoot umount -l "$root/proc" 2>/dev/null || true
    AsRoot rm -rf --one-file-system "$root"
}
trap CleanUp EXIT

Fail() {
    Say "$*"
    exit 1
}

InRoot() {
    AsRoot chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 "$@"
}

Apt() {
    Logged "$folder/apt.log" InRoot DEBIAN_FRONTEND=noninteractive apt-get -qq -y "$@"
}

# As somebody who owns nothing but a folder.
AsUser() {
    local user=(chroot --userspec=1000:1000 "$root" env -i PATH=/usr/bin LC_ALL=C.UTF-8
        HOME=/home/user QT_QPA_PLATFORM=offscreen)
    Logged "$folder/user.log" AsRoot "${user[@]}" sh -ec "cd; $1"
}

# The files that packages bring or make; those of the package system itself change with its use.
Files() {
    AsRoot find "$root" -xdev -path "$root/var/cache" -prune -o -path "$root/var/log" -prune \
        -o -path "$root/var/lib/apt" -prune -o -path "$root/var/lib/dpkg" -prune \
        -o -path "$root/tmp" -prune -o -path "$root/home" -prune -o -printf '/%P\n' | sort
}

Install() {
    AsRoot cp "$1" "$root/tmp"
    Apt install --no-install-recommends "/tmp/$(basename "$1")"
}

IsInRoot() {
    # shellcheck disable=SC2016  # dpkg-query's own variable
    [ -n "$(InRoot dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null | grep '^ii' || true)" ]
}

# shellcheck source=/dev/null
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
# shellcheck disable=SC2016  # apt-get's own variable
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' \
    "Codename: $release" 'Origin: Debian' | sort -u | head -n 1)
[ -n "$mirror" ] || Fail "The machine's package sources name none of Debian's."
Say "Making a Debian without anything else ..."
Logged "$folder/debootstrap.log" AsRoot debootstrap --variant=minbase "$release" "$root" "$mirror"
AsRoot mkdir "$root/home/user"
AsRoot chown 1000:1000 "$root/home/user"
AsRoot mount --bind /proc "$root/proc"
Apt update
before=$(Files)

Say "Trying vx3260-cli alone ..."
Install "${packages[0]}"
! IsInRoot libqt6widgets6 || Fail "vx3260-cli depends on Qt's widgets."
AsUser 'vx3260-cli --simulated read main --count 50 --output block.dat
    vx3260-cli noise main block.dat
    vx3260-cli --simulated record main --output night.csv --count 20
    vx3260-cli --simulated characterise main --words 255 --output noise --count 10
    vx3260-cli --simulated save bench.vx3260
    vx3260-cli --simulated compare bench.vx3260'
Say "Trying vx3260-eval ..."
Install "${packages[1]}"
# shellcheck disable=SC2016  # the other shell's variable
AsUser 'code=0; timeout 5 vx3260-eval --simulated block.dat || code=$?; [ $code -eq 124 ]'
for path in share/man/man1/vx3260-{cli,eval}.1.gz share/applications/vx3260-eval.desktop \
    share/bash-completion/completions/vx3260-{cli,eval} share/zsh/vendor-completions/_vx3260-{cli,eval} \
    share/vx3260-eval/handbook/index.html; do
    [ -e "$root/usr/$path" ] || Fail "There is no /usr/$path."
done

Say "Removing the packages ..."
Apt purge --autoremove vx3260-cli vx3260-eval
left=$(comm -13 <(printf '%s\n' "$before") <(Files))
[ -z "$left" ] || Fail "The packages left behind: $left"
[ -z "$(AsRoot find "$root/etc" "$root/usr" "$root/var/lib" -iname '*vx3260*')" ] ||
    Fail "The packages left something of their own behind."

Say "Running the packages' own tests ..."
Logged "$folder/autopkgtest.log" AsRoot autopkgtest --no-built-binaries \
    "${packages[@]}" "$folder"/vx3260-eval_*.dsc -- chroot "$root"
Say "Installed, run as an ordinary user, removed without a trace, tested: ${packages[*]##*/}."
