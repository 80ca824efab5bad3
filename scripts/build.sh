#!/usr/bin/env bash
# Configures and builds the whole tree into build/ (Release with assertions off,
# warnings as errors). Any further arguments go to cmake --build (e.g. --target).
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=${ORVO_BUILD_DIR:-build}
# Several build folders of one checkout share the compiler cache: paths under the
# checkout are hashed relative to it, and the build folder's own path is left out.
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$PWD}
export CCACHE_NOHASHDIR=${CCACHE_NOHASHDIR:-1}
if [ ! -f "$BUILD_DIR/build.ninja" ]; then
  cmake -S . -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=${ORVO_BUILD_TYPE:-RelWithDebInfo}
fi
cmake --build "$BUILD_DIR" -j"$(nproc)" "$@"
