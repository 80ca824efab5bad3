#!/usr/bin/env bash
# Installs, from Debian's archive only, every package the build, the tests and the
# benchmarks need. Idempotent: packages already present are not touched, and apt is
# not called at all when nothing is missing. Works as root or through sudo.
set -euo pipefail

# Optional extras by name (e.g. `install-deps.sh clang` for the fuzz targets); the
# build and the tests never need them.
EXTRA=("$@")

PACKAGES=(
  build-essential cmake ninja-build ccache pkg-config git
  qt6-base-dev qt6-base-dev-tools qt6-pdf-dev libgl-dev
  libsqlite3-dev sqlite3
  libpq-dev postgresql
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  fonts-dejavu-core zlib1g-dev
  xvfb xauth poppler-utils unzip xdg-utils
)

missing=()
for p in "${PACKAGES[@]}" "${EXTRA[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: everything is present"
  exit 0
fi

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then SUDO="sudo"; else
    echo "install-deps: need root or sudo to install: ${missing[*]}" >&2; exit 1
  fi
fi

echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
