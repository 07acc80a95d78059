#!/usr/bin/env bash
# CPU time of a start of Merov up to its main screen against that of an empty main window, by turns.
# Usage: measure.sh MEROV_STARTUP [RUNS]   (the built program bench/merov_startup, 21 runs of each)
set -euo pipefail
program=$1
runs=${2:-21}
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
settings=$(mktemp -d)
trap 'rm -rf "$settings"' EXIT
export XDG_CONFIG_HOME=$settings

for kind in merov empty; do "$program" $kind >/dev/null; done # fills the disk's cache
for ((run = 0; run < runs; run++)); do
    for kind in merov empty; do "$program" $kind >>"$settings/$kind"; done
done
median() { sort -n "$settings/$1" | sed -n "$((runs / 2 + 1))p"; }
merov=$(median merov)
empty=$(median empty)
echo "start of Merov ${merov} ms, empty window ${empty} ms, ratio $(awk "BEGIN { printf \"%.2f\", $merov / $empty }")"
