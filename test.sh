#!/usr/bin/env bash
# Installs what is missing, builds and runs every test. Arguments go on to ctest, such as -R Rhumb.
# MEROV_PRESET picks another way of building: dev, release or asan.
set -euo pipefail
cd "$(dirname "$0")"

scripts/install_packages.sh test
preset=${MEROV_PRESET:-dev}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)" "$@"
