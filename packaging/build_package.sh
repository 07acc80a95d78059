#!/usr/bin/env bash
# Installs what is missing and builds the Debian package, in build/package. Tells its path.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh package
cmake -S . -B build/package -G Ninja -DCMAKE_BUILD_TYPE=Release -DMEROV_TESTS=OFF >/dev/null
cmake --build build/package >&2
(cd build/package && cpack >/dev/null)
realpath "$(ls -t build/package/merov_*.deb | head -n 1)"
