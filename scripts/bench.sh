#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds the speed measurements and runs them. Arguments are passed on.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

InstallMissing "${buildPackages[@]}" "${benchPackages[@]}"
Build bench
exec build/bench/bin/vx3260-bench "$@"
