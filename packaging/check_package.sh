#!/usr/bin/env bash
# Shows that a Debian package of Merov installs, works and goes again: checks it with lintian and the
# checkers of its parts, builds a fresh Debian root, installs it there with apt, starts the program by its
# desktop file on a file of sights, prints a report, asks for manual pages, completion and the type of
# files, removes the package and compares the root with what it was before.
#
# check_package.sh PACKAGE.deb [FOLDER]
#   FOLDER   gets the picture of the program's window and the report (a temporary one)
# Needs root, lintian, appstreamcli, desktop-file-validate, debootstrap and about 1.5 GB in /tmp for a
# while. MEROV_MIRROR names another mirror than http://deb.debian.org/debian, MEROV_SUITE another release
# than bookworm.
set -euo pipefail
package=$(realpath "$1")
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
results=${2:-$scratch/results}
root=$scratch/root
mkdir -p "$results"
PATH=$PATH:/usr/sbin:/sbin
[ "$(id -u)" -eq 0 ] || { echo "only root can build a root"; exit 2; }

finish() {
    local status=$? mounted
    for mounted in dev/shm proc; do
        ! mountpoint -q "$root/$mounted" || umount "$root/$mounted" || umount -l "$root/$mounted"
    done
    rm -rf --one-file-system "$scratch"
    [ "$status" -eq 0 ] || echo "FAILED"
}
trap finish EXIT
say() { echo "== $*"; }

say "the package itself"
lintian --fail-on error,warning --allow-root "$package"
echo "lintian: no error, no warning"
dpkg-deb -x "$package" "$scratch/files"
desktop-file-validate "$scratch/files/usr/share/applications/merov.desktop"
appstreamcli validate --no-net "$scratch"/files/usr/share/metainfo/*.xml
for page in "$scratch"/files/usr/share/man/man1/*.gz; do
    LC_ALL=C.UTF-8 MANROFFSEQ= man --warnings -l "$page" 2>&1 >/dev/null | tee "$scratch/warnings"
    [ ! -s "$scratch/warnings" ]
done
for program in merov merov-cli; do
    ! readelf -d "$scratch/files/usr/lib/merov/$program" | grep -E 'R(UN)?PATH'
done
echo "desktop file, metainfo and manual pages are valid; no run path"

say "a fresh root of Debian ${MEROV_SUITE:-bookworm}"
debootstrap --variant=minbase "${MEROV_SUITE:-bookworm}" "$root" \
    "${MEROV_MIRROR:-http://deb.debian.org/debian}" >"$scratch/debootstrap.log" 2>&1 ||
    { tail -n 20 "$scratch/debootstrap.log"; exit 1; }
cp /etc/resolv.conf "$root/etc/"
# As this machine asks for packages, such as through a proxy.
cp -r /etc/apt/apt.conf.d/. "$root/etc/apt/apt.conf.d/"
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
chmod +x "$root/usr/sbin/policy-rc.d"
mount -t proc proc "$root/proc"
mkdir -p "$root/dev/shm" "$root/check"
mount -t tmpfs tmpfs "$root/dev/shm"
cp "$package" "$root/check/merov.deb"
cp "$here/check_in_root.sh" "$root/check/"
chmod -R a+rX "$root/check"
chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 bash /check/check_in_root.sh
cp "$root"/home/navigator/*.pdf "$results/"
if command -v convert >/dev/null; then convert "xwd:$root/check/window.xwd" "$results/window.png"; fi
ls -l "$results"
say "done"
