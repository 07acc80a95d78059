#!/usr/bin/env bash
# Takes the pictures of docs/screenshots anew: the screens at 1280x800, and the same at 200 %. Needs no
# display.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh test
cmake --preset dev >/dev/null
cmake --build --preset dev --target merov_screenshots

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
for scale in 1 2; do
    folder=docs/screenshots/$((100 * scale))
    mkdir -p "$folder"
    cat >"$scratch/screen.json" <<END
{"screens": [{"name": "one", "x": 0, "y": 0, "width": $((1280 * scale)), "height": $((800 * scale)), "dpr": 1,
              "logicalDpi": 96, "logicalBaseDpi": 96}]}
END
    QT_QPA_PLATFORM="offscreen:configfile=$scratch/screen.json" QT_SCALE_FACTOR=$scale LC_ALL=C.UTF-8 TZ=UTC \
        XDG_CONFIG_HOME="$scratch" XDG_RUNTIME_DIR="$scratch" build/dev/tools/merov_screenshots "$folder"
    echo "$folder: $(ls "$folder" | wc -l) pictures"
done
