#!/usr/bin/env bash
# A whole voyage with the built program, on a screen of its own: start with a file of sights, save what the
# tabs show, run the fix, save again, quit. What the program shows is judged by what it writes: the first
# file holds the sights as they were loaded, the second one as the fix has sorted them.
#
# voyage.sh PROGRAM LANGUAGE PICTURES
#   LANGUAGE   of the run: "C", or "de_DE" for a decimal comma and German months
#   PICTURES   folder that takes the pictures of the screen
# Ends with 0, with 77 where Xvfb or xdotool is missing, else with 1 and the reason.

set -u
program=$1
language=$2
pictures=$3
seconds=60 # that a step may take on a busy machine

for tool in Xvfb xdotool; do
  command -v "$tool" > /dev/null || { echo "$tool is missing"; exit 77; }
done

folder=$(mktemp -d)
screen=
voyage=
finish() {
  for process in $voyage $screen; do kill "$process" 2> /dev/null; done
  rm -rf "$folder"
}
trap finish EXIT

picture() {
  command -v import > /dev/null && import -window root "$pictures/$language-$1.png"
}
fail() {
  echo "FAILED: $*"
  picture failure
  cat "$folder/output"
  exit 1
}

# Waits until a command succeeds. Gives up after a time, or when the program has ended.
until_true() {
  local end=$((SECONDS + seconds))
  until "$@" > /dev/null 2>&1; do
    [ $SECONDS -lt $end ] || fail "waited in vain: $*"
    kill -0 "$voyage" 2> /dev/null || fail "the program has ended: $*"
    sleep 0.1
  done
}
window() { xdotool search --onlyvisible --name "$1"; }
no_window() { ! window "$1"; }
# Keys for a window: those of the window that has the focus, once it is this one.
has_focus() { [ "$(xdotool getwindowfocus getwindowname)" = "$1" ]; }
keys() {
  until_true has_focus "$1"
  shift
  xdotool key --delay 60 "$@"
}
ended() { ! kill -0 "$voyage" 2> /dev/null; }

main=" Merov 1.2"

# Saves by the menu, under the proposed name, in the folder of this run, and holds what was written to
# the bytes of a file: save_as EXPECTED
save_as() {
  keys "$main" F10 Right s
  until_true has_focus "Save observations data"
  keys "Save observations data" Home
  xdotool type --delay 20 "$folder/"
  picture save
  keys "Save observations data" Return
  until_true has_focus "File saved confirmation"
  keys "File saved confirmation" Return
  until_true no_window "File saved confirmation"
  cmp "$1" "$folder/${day}A.obs" || fail "other sights than those of $1 were saved"
  rm "$folder/${day}A.obs"
}

# ---- the file: its sights stand in the wrong order, its name has blanks and letters beyond ASCII

mkdir -p "$pictures" "$folder/home" "$folder/config"
sample="$(dirname "$program")/Observations/two_sights.obs"
start="$folder/Überfahrt nach Süden.obs"
sed '8{h;d};9G' "$sample" > "$start"
cmp -s "$sample" "$start" && fail "the sights of the sample aren't swapped"

day=14Sep24
[ "$language" = de_DE ] && day=14Sept24

# ---- the run

exec 3> "$folder/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -dpi 96 -nolisten tcp 2> /dev/null &
screen=$!
voyage=$screen # until the program runs
until_true test -s "$folder/display"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
unset LC_ALL LC_NUMERIC LC_TIME LC_CTYPE LANGUAGE QT_QPA_PLATFORM QT_SCALE_FACTOR
[ "$language" = C ] && export LC_ALL=C.UTF-8
env HOME="$folder/home" XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder" LANG="$language.UTF-8" TZ=UTC \
  "$program" "\"$start\"" > "$folder/output" 2>&1 &
voyage=$!

until_true window .
picture splash
xdotool mousemove 640 512 click 1
until_true has_focus "$main"
picture loaded
save_as "$start"

keys "$main" F10 Right n d
save_as "$sample" # which the fix has sorted
picture fix

keys "$main" ctrl+q
until_true has_focus "Quit Merov"
picture quit
keys "Quit Merov" alt+y
end=$((SECONDS + seconds))
until ended || [ $SECONDS -ge $end ]; do sleep 0.1; done
ended || fail "the program doesn't end"
wait "$voyage"
code=$?
[ $code -eq 0 ] || fail "the program ended with $code"
for key in MainWidth MainLeft MainHeight MainTop; do
  grep -Eq "^$key=[0-9.e+-]+$" "$folder/config/Merov/Merov.ini" || fail "$key isn't stored"
done
echo "voyage ended well"
