#!/usr/bin/env bash
# Installs the Debian packages that are missing. Usage: install_packages.sh run|test|fuzz|package|analysis
# run: to build and run the program; test: also for the tests, the comparisons and the benchmarks;
# fuzz: for the fuzz targets; package: to build the Debian package and check it;
# analysis: for the static analysis.
set -euo pipefail

packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libchm-dev fp-utils libcli11-dev fonts-liberation)
case "${1:-}" in
run) ;;
test) packages+=(pkg-config libgtest-dev libbenchmark-dev xvfb xdotool imagemagick cups-daemon cups-client poppler-utils liberfa-dev libnova-dev libgeographiclib-dev) ;;
package) packages+=(dpkg-dev file lintian appstream desktop-file-utils shared-mime-info man-db debootstrap imagemagick) ;;
fuzz) packages=(cmake ninja-build clang qt6-base-dev) ;;
analysis) packages+=(clang clang-tidy) ;;
*)
    echo "usage: $0 run|test|fuzz|package|analysis" >&2
    exit 2
    ;;
esac

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}" >&2
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq >&2
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
