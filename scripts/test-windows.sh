#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds what needs no Qt for 64-bit Windows and runs its tests under wine, without a display.
# Arguments are passed on to the tests.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${windowsPackages[@]}"
UseWine
Build windows
# All in one process: wine takes longer to start than they do to run.
exec wine build/windows/bin/tests-core.exe "$@"
