#!/usr/bin/env bash
# Tells whether two builds of merov-cli give the same results to the last bit: the samples in every view,
# all bodies, the Sun's day, sailings.
#
# compare_results.sh MEROV-CLI OTHER-MEROV-CLI
set -euo pipefail
samples=$(cd "$(dirname "$0")/../data/Observations" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

results() {
    local program=$1
    give() { "$program" "$@" --json || echo "status $?"; } # a refusal is a result too
    for sample in "$samples"/*.obs; do
        for view in fix report chart; do
            give fix "$sample" --view $view
            give fix "$sample" --view $view --truncated --no-systematic --one-position
        done
    done
    for day in 1900-01-01 1993-07-14 2024-09-14 2099-12-31; do
        give bodies "$day 03:21:07"
        give sun 48.5 -5.1 $day 12
    done
    for ellipsoid in 0 7 19; do
        give rhumb inverse 40.5 -70 51 -5 --ellipsoid $ellipsoid
        give rhumb direct -33 151 93.7 1234.5 --ellipsoid $ellipsoid
        give gc 40.5 -70 49 -5 --interval 5 --max-lat 50 --ellipsoid $ellipsoid
    done
}
results "$1" >"$scratch/one"
results "$2" >"$scratch/other"
cmp "$scratch/one" "$scratch/other"
echo "the same $(wc -l <"$scratch/one") lines of results"
