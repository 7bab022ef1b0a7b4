#!/usr/bin/env bash
# Sets everything up, builds with warnings as errors and runs the whole test suite.
# WAYFERN_SANITIZE=1 builds into build-asan with address and undefined-behaviour sanitizers.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh"
args=(-DWAYFERN_WERROR=ON)
if [ "${WAYFERN_SANITIZE:-0}" = 1 ]; then
  export WAYFERN_BUILD_DIR="${WAYFERN_BUILD_DIR:-$top/build-asan}"
  args+=(-DWAYFERN_SANITIZE=ON)
  export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1}"
  export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
fi
bash "$top/scripts/build.sh" "${args[@]}"
build="${WAYFERN_BUILD_DIR:-$top/build}"
export QT_QPA_PLATFORM=offscreen
cd "$build"
ctest --output-on-failure --timeout 600
