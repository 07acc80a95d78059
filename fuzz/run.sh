#!/usr/bin/env bash
# Runs every fuzz target for so many seconds each. Usage: fuzz/run.sh [SECONDS], after
#   cmake --preset fuzz && cmake --build --preset fuzz
# New inputs grow in build/fuzz/corpus, finds lie in build/fuzz/finds.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-300}
status=0
mkdir -p build/fuzz/finds
for target in observation_file number_texts rich_text; do
    fuzzer=build/fuzz/fuzz/${target}_fuzzer
    [ -x "$fuzzer" ] || { echo "no $fuzzer" >&2 && status=1 && continue; }
    mkdir -p "build/fuzz/corpus/$target"
    # What Qt keeps until the end of a program is no leak of ours.
    leaks=1
    [ "$target" = rich_text ] && leaks=0
    nice "$fuzzer" -max_total_time="$seconds" -detect_leaks=$leaks -dict="fuzz/$target.dict" -print_final_stats=1 \
        -artifact_prefix="build/fuzz/finds/$target-" "build/fuzz/corpus/$target" "fuzz/corpus/$target" || status=1
done
exit $status
