#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the optimised programs as people do who know nothing of the presets, and runs the main job.
# "--tests" builds and runs the tests as well.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

build=build/plain tests=OFF
[ "${1:-}" != --tests ] || tests=ON
InstallMissing "${buildPackages[@]}" "${testPackages[@]}" "${plainPackages[@]}"
mkdir -p $build
Logged $build/configure.log cmake -S . -B $build -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_COMPILER=g++ -DCMAKE_UNITY_BUILD=ON -DBUILD_TESTING=$tests
Logged $build/build.log cmake --build $build --parallel "$(nproc)"
$build/bin/vx3260-cli --simulated noise main --count 200
[ $tests = OFF ] || ctest --test-dir $build --parallel "$(nproc)" --output-on-failure --no-tests=error
