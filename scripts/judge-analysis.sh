#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Compares the figures of vx3260-cli, whose path is the argument, with those of numpy and scipy.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${judgePackages[@]}"
# The system's own, which is the one that the packages are for.
exec /usr/bin/python3 scripts/judge-analysis.py "${1:-build/release/bin/vx3260-cli}"
