#!/usr/bin/env bash
# Installs what is missing, builds the program and runs it. The program that stands so far is the
# command line tool: without arguments this computes the sample session and prints its report, and
# with arguments it hands them to merov-cli.
set -euo pipefail
invoked_from=$PWD
cd "$(dirname "$0")"
here=$PWD

scripts/install_packages.sh run
cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DMEROV_TESTS=OFF -DMEROV_DESKTOP=OFF >/dev/null
cmake --build build/run >&2

tool=$here/build/run/bin/merov-cli
if [ $# -gt 0 ]; then
    cd "$invoked_from"
    exec "$tool" "$@"
fi
echo "Merov has no window yet; this is the sample session $here/data/Observations/evening_stars.obs."
echo
exec "$tool" fix "$here/data/Observations/evening_stars.obs"
