#!/usr/bin/env bash
# Static analysis of the whole program by clang-tidy, with the checks of .clang-tidy. Ends with an error on
# any finding. Words are folders or beginnings of paths to look at instead of all: static_analysis.sh planning
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh analysis

cmake -S . -B build/analysis -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug -DMEROV_TESTS=OFF \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
wanted=("$@")
[ ${#wanted[@]} -gt 0 ] || wanted=(numeric ephemeris sailing fix planning platform output app cli packaging)
patterns=()
for word in "${wanted[@]}"; do
    patterns+=("^$PWD/$word")
done
if ! run-clang-tidy -quiet -j "$(nproc)" -p build/analysis "${patterns[@]}" >build/analysis/findings.txt 2>&1; then
    grep -E "(error|warning):" -A 3 build/analysis/findings.txt
    exit 1
fi
echo "No findings in $(grep -c '^clang-tidy' build/analysis/findings.txt) files."
