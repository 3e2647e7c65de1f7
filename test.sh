#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, and runs all tests. Arguments are passed on to ctest.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/build-functions.sh

InstallMissing "${buildPackages[@]}" "${testPackages[@]}"
Build debug
exec ctest --preset debug "$@"
