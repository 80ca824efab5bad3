#!/usr/bin/env bash
# Installs what is missing, builds, and starts the program on a demo book.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh
BUILD_DIR=${ORVO_BUILD_DIR:-build}
exec "$BUILD_DIR/app/orvo-apskaita" "$@"
