#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds what needs no Qt for 64-bit ARM, as single-board computers with GPIO lines have it, and runs
# its tests under QEMU. Arguments are passed on to the tests.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${arm64Packages[@]}"
Build arm64
# The emulator itself is a process with threads, so limits on processes are not those of the tests.
exec qemu-aarch64-static -L /usr/aarch64-linux-gnu build/arm64/bin/tests-core \
    --gtest_filter=-LinuxSystem.TooManyProcesses* "$@"
