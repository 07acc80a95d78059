#!/usr/bin/env bash
# The part of check_package.sh that runs in the fresh root, where /check holds the package.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive
say() { echo "== $*"; }
fail() {
    echo "FAILED: $*" >&2
    exit 1
}
quietly() { "$@" >/check/log 2>&1 || { tail -n 30 /check/log; fail "$*"; }; }
install() { quietly apt-get install -y --no-install-recommends "$@"; }
as_user() { runuser -u navigator -- env HOME=/home/navigator XDG_RUNTIME_DIR=/home/navigator/run "$@"; }

# All paths of the root, with the sums of the files outside of caches and logs.
listed() {
    find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /tmp -o -path /home -o -path /check \
        -o -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/cache/apt -o -path /var/log \) -prune \
        -o -printf '%y %m %p %l\n' | sort
    find /etc /usr /var/lib /opt -xdev \( -path /var/lib/dpkg -o -path /var/lib/apt \) -prune \
        -o -type f -print0 | xargs -0 md5sum | sort -k2
}

say "the tools of this check, and what the package depends on"
quietly apt-get update
install xvfb xdotool libglib2.0-bin desktop-file-utils hicolor-icon-theme man-db bash-completion fish poppler-utils
useradd -m navigator
as_user mkdir -m 700 /home/navigator/run
needed=$(apt-get install --simulate --no-install-recommends /check/merov.deb | sed -n 's/^Inst \([^ ]*\).*/\1/p' | sed '/^merov$/d')
echo $needed
[ -z "$needed" ] || install $needed
listed >/check/before

say "installation"
install /check/merov.deb
dpkg-query -W -f='${Package} ${Version} ${Status}\n' merov
dpkg -V merov
[ "$(readlink -f /usr/bin/merov)" = /usr/lib/merov/merov ] || fail "the link of merov"

say "type of files"
samples=/usr/lib/merov/Observations
folder=/home/navigator/sights
as_user mkdir $folder
as_user cp $samples/evening_stars.obs "$folder/14 September, evening"
as_user cp $samples/old_form_0_9.obs $folder/old
as_user sh -c "printf '     2.11           OBSERVATION DATA    M (MIXED)           RINEX VERSION / TYPE\n' >$folder/gps.obs"
type_of() { as_user gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'; }
for file in $samples/*.obs "$folder/14 September, evening" $folder/old; do
    [ "$(type_of "$file")" = application/x-merov-observations ] || fail "$file is told as $(type_of "$file")"
done
[ "$(type_of $folder/gps.obs)" != application/x-merov-observations ] || fail "another file is mistaken"
as_user gio mime application/x-merov-observations | tee /check/default
grep -q '^Default application.*merov.desktop$' /check/default || fail "no default program"
as_user gio info -a standard::icon "$folder/14 September, evening" >/check/icon
grep -q application-x-merov-observations /check/icon || fail "no icon"

say "the program, started by its desktop file"
export DISPLAY=:77
Xvfb $DISPLAY -screen 0 1280x1024x24 -nolisten tcp -fbdir /check >/check/xvfb.log 2>&1 &
screen=$!
stop() {
    [ -z "${program:-}" ] || kill "$program" 2>/dev/null || true
    kill $screen 2>/dev/null || true
    wait $screen 2>/dev/null || true
}
trap stop EXIT
until_true() {
    local end=$((SECONDS + 60))
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || fail "waited in vain: $*"
        sleep 0.2
    done
}
until_true xdotool getmouselocation
as_user gio open "$folder/14 September, evening" # which is what a double click does
until_true pgrep -u navigator -x merov
program=$(pgrep -u navigator -x merov)
tr '\0' ' ' <"/proc/$program/cmdline" && echo
until_true xdotool search --onlyvisible --name .
xdotool mousemove 640 512 click 1 # the splash
shown() { [ "$(xdotool getwindowfocus getwindowname)" = "$1" ]; }
until_true shown " Merov 1.2"
xdotool key --delay 100 F10 Right n d # the fix and its report
sleep 3
cp /check/Xvfb_screen0 /check/window.xwd
xdotool key ctrl+q
until_true shown "Quit Merov"
xdotool key alt+y
ended() { ! kill -0 "$program"; }
until_true ended
program=
echo "it opened the sights, and closed by Ctrl+Q"

say "a report as PDF"
(cd /home/navigator && as_user merov-cli fix $samples/evening_stars.obs --report report.pdf)
pdftotext -layout /home/navigator/report.pdf - | grep -v '^ *$' | head -n 12
pdffonts /home/navigator/report.pdf | tail -n +3

say "help, manual pages, completion"
[ "$(as_user timeout 30 merov --version)" = "$(dpkg-query -W -f='merov ${Version}' merov | cut -d- -f1)" ] || fail "merov --version"
as_user merov-cli --version
for page in merov merov-cli; do
    as_user env MANWIDTH=80 man $page >/check/page
    grep -q '^SYNOPSIS' /check/page || fail "man $page"
    whatis $page
done
as_user bash -c '
    . /usr/share/bash-completion/bash_completion
    complete_line() {
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
        "$(complete -p "$1" | sed "s/.*-F \([^ ]*\) .*/\1/")"
        echo "$*: ${COMPREPLY[*]}"
    }
    loader=$(complete -p -D | sed "s/.*-F \([^ ]*\).*/\1/") # what a shell asks at the first Tab
    "$loader" merov-cli
    "$loader" merov
    complete_line merov-cli ""
    complete_line merov-cli rhumb t
    complete_line merov-cli fix --view ""
    complete_line merov-cli body VEG
    cd /usr/lib/merov/Observations
    complete_line merov ev' 2>&1 | tee /check/completion
grep -q '^merov-cli rhumb t: to-latitude to-longitude$' /check/completion || fail "completion of commands"
grep -q '^merov-cli fix --view : chart fix report$' /check/completion || fail "completion of values"
grep -q '^merov-cli body VEG: VEGA$' /check/completion || fail "completion of bodies"
grep -q '^merov ev: evening_stars.obs$' /check/completion || fail "completion of files"
as_user fish -c 'complete -C "merov-cli rhumb to-"' | tee /check/completion
[ "$(wc -l </check/completion)" -eq 2 ] || fail "completion for fish"

# Without files of configuration, removing and purging are the same, each from an installed package.
for away in remove purge; do
    say "apt-get $away"
    install /check/merov.deb
    quietly apt-get $away -y merov
    ! command -v merov || fail "merov is still there"
    listed >/check/after
    diff /check/before /check/after || fail "the root is not what it was"
    echo "the root is what it was before ($(wc -l </check/before) lines of paths and sums)"
done
! dpkg-query -W merov 2>/dev/null || fail "dpkg still knows it"
echo "in the user's folder stay: $(cd /home/navigator && find .config -type f | tr '\n' ' ')"
