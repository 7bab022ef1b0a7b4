#!/usr/bin/env bash
# Configures and builds Wayfern into ./build (or the directory given in WAYFERN_BUILD_DIR).
# Extra arguments go to the CMake configure step, e.g. -DWAYFERN_SANITIZE=ON.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
build="${WAYFERN_BUILD_DIR:-$top/build}"
cmake -S "$top" -B "$build" "$@"
cmake --build "$build" --parallel "$(nproc)"
