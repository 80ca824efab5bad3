#!/usr/bin/env bash
# Installs what is missing, builds everything, starts a throwaway PostgreSQL server on
# loopback for the storage tests, runs every test with ctest, and stops the server.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh
BUILD_DIR=${ORVO_BUILD_DIR:-build}

pgdir=$(mktemp -d /tmp/orvo-pg.XXXXXX)
port=$(( 20000 + RANDOM % 20000 ))
cleanup() { bash scripts/pg-test-server.sh stop "$pgdir" || true; }
trap cleanup EXIT
export ORVO_TEST_PG=$(bash scripts/pg-test-server.sh start "$pgdir" "$port")
echo "test-all: PostgreSQL for the storage tests at $ORVO_TEST_PG"

export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout 600
