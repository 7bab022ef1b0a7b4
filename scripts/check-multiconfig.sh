#!/usr/bin/env bash
# Checks that the build works with a multi-config generator: configures build-multi with
# Ninja Multi-Config, builds Debug and Release and runs the test suite on Debug.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh" ninja
build="${WAYFERN_BUILD_DIR:-$top/build-multi}"
cmake -S "$top" -B "$build" -G "Ninja Multi-Config" -DWAYFERN_WERROR=ON "$@"
cmake --build "$build" --config Debug --parallel "$(nproc)"
cmake --build "$build" --config Release --parallel "$(nproc)"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest -C Debug --output-on-failure --timeout 600
