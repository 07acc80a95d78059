#!/usr/bin/env bash
# A long run of the user without sense: clicks and keys all over the program, windows and boxes included,
# under the sanitizers. Usage: monkey.sh [EVENTS [SEED]] (100000 events, a seed by the time). It tells how
# long it took, and ends with an error on a crash, a stuck box or an entry that was lost.
set -euo pipefail
cd "$(dirname "$0")/.."
events=${1:-100000}
seed=${2:-$(date +%s)}
scripts/install_packages.sh test
cmake --preset asan >/dev/null
cmake --build --preset asan --target merov_monkey_tests merov_data

echo "$events events, seed $seed"
MEROV_MONKEY_EVENTS=$events MEROV_MONKEY_SEED=$seed QT_LOGGING_RULES="*.warning=false" \
    build/asan/tests/merov_monkey_tests --gtest_filter='*/0'
