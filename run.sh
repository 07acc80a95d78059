#!/usr/bin/env bash
# Installs what is missing, builds the program and runs it. The path of an observation file opens the
# program on that file; other words go to the command line tool merov-cli. Where there is no display the
# sample session (or the file) is computed instead and its report printed.
set -euo pipefail
invoked_from=$PWD
cd "$(dirname "$0")"
here=$PWD

scripts/install_packages.sh run
cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DMEROV_TESTS=OFF >/dev/null
cmake --build build/run >&2

programs=$here/build/run/bin
cd "$invoked_from"
if [ $# -gt 0 ] && [ ! -f "$1" ]; then
    exec "$programs/merov-cli" "$@"
fi
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    exec "$programs/merov" "$@"
fi
session=${1:-$here/data/Observations/evening_stars.obs}
echo "There is no display to show Merov's window on; this is the report of the session $session."
echo
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$programs/merov-cli" fix "$session" --report "$scratch/report.txt" >/dev/null
cat "$scratch/report.txt"
