#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, and starts the evaluation software: the forms where there is a
# display, otherwise the command line. Without arguments it works on the simulated board and, in
# the terminal, reads a block of codes and analyses its noise. Arguments are passed on instead.
set -euo pipefail
cd "$(dirname "$0")"
startedIn=$OLDPWD
source scripts/build-functions.sh

InstallMissing "${buildPackages[@]}" "${runPackages[@]}"
Build release

programs=$PWD/build/release/bin
cd "$startedIn"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    [ $# -gt 0 ] || set -- --simulated
    exec "$programs/vx3260-eval" "$@"
fi
[ $# -gt 0 ] || set -- --simulated noise main --count 200
exec "$programs/vx3260-cli" "$@"
