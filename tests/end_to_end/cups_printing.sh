#!/usr/bin/env bash
# Jobs through a print server: a cupsd of its own on a socket in a temporary folder, with two queues whose
# jobs stay in its spool, where they are looked at.
#
# cups_printing.sh PROGRAM
#   PROGRAM   prints to the server (cups_printing.cpp)
# Ends with 0, with 77 where there is no server to start, else with 1 and the reason.

set -u
program=$1
PATH=$PATH:/usr/sbin

for tool in cupsd lpadmin lpstat pdfinfo pdftotext; do
  command -v "$tool" > /dev/null || { echo "$tool is missing"; exit 77; }
done
[ "$(id -u)" -eq 0 ] || { echo "only root can start a print server"; exit 77; }

folder=$(mktemp -d)
server=
finish() {
  [ -n "$server" ] && kill "$server" 2> /dev/null && wait "$server" 2> /dev/null
  rm -rf "$folder"
}
trap finish EXIT
fail() {
  echo "FAILED: $*"
  tail -n 20 "$folder/log/error" 2> /dev/null
  exit 1
}

# ---- the server

mkdir -p "$folder"/{etc/ppd,spool/tmp,cache,state,log,run}
chmod 755 "$folder" "$folder"/*
chmod 1777 "$folder/spool/tmp"
chmod 700 "$folder/run"
cat > "$folder/etc/cups-files.conf" << END
ServerRoot $folder/etc
RequestRoot $folder/spool
TempDir $folder/spool/tmp
CacheDir $folder/cache
StateDir $folder/state
AccessLog $folder/log/access
ErrorLog $folder/log/error
PageLog $folder/log/page
FileDevice Yes
SystemGroup root
END
cat > "$folder/etc/cupsd.conf" << END
Listen $folder/cups.sock
WebInterface No
Browsing No
DefaultAuthType None
PreserveJobFiles Yes
<Location />
  Allow all
</Location>
<Policy default>
  <Limit All>
    Allow all
  </Limit>
</Policy>
END
cat > "$folder/plain.ppd" << 'END'
*PPD-Adobe: "4.3"
*Manufacturer: "Plain"
*ModelName: "Plain"
*NickName: "Plain"
*ColorDevice: True
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*PageSize Letter/Letter: ""
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4/A4: "24 12 571 806"
*ImageableArea Letter/Letter: "24 12 588 756"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
END

cupsd -f -c "$folder/etc/cupsd.conf" -s "$folder/etc/cups-files.conf" &
server=$!
for ((i = 0; i < 300; i++)); do
  [ -S "$folder/cups.sock" ] && break
  kill -0 "$server" 2> /dev/null || { server=; echo "cupsd doesn't start"; exit 77; }
  sleep 0.1
done
export CUPS_SERVER=$folder/cups.sock
for queue in Bridge ChartRoom; do
  lpadmin -p $queue -E -v file:/dev/null -P "$folder/plain.ppd" 2> /dev/null || { echo "cupsd takes no queue"; exit 77; }
done
lpadmin -d ChartRoom || fail "no default queue"

# ---- what the program prints

unset MEROV_NO_PDF_PRINTER
XDG_RUNTIME_DIR=$folder/run LC_ALL=C.UTF-8 "$program" || fail "the program ended with $?"

jobs=("$folder"/spool/d*)
[ ${#jobs[@]} -eq 2 ] || fail "other jobs than the two: ${jobs[*]}"
[ "$(lpstat -W all -o | sort | cut -d- -f1 | xargs)" = "Bridge ChartRoom" ] || fail "$(lpstat -W all -o)"
for job in "${jobs[@]}"; do
  pdfinfo "$job" > "$folder/info" || fail "$job is no PDF"
  grep -q '^Title: *A page of the log$' "$folder/info" || fail "$(cat "$folder/info")"
  grep -q '^Pages: *2$' "$folder/info" || fail "$(cat "$folder/info")"
done
# The margins hold from the edge of the paper, whatever a printer can't reach: 75 points to the left, 50 above.
pdftotext -bbox -l 1 "${jobs[0]}" - | grep -m1 '<word' > "$folder/word"
grep -q 'xMin="7[45]\.[0-9]*" yMin="5[0-3]\.[0-9]*".*>First</word>' "$folder/word" || fail "$(cat "$folder/word")"
pdftotext -f 2 "${jobs[0]}" - | grep -q '^Second page$' || fail "the second page is wrong"
pdfinfo "${jobs[0]}" | grep -q '(A4)' || fail "the first job isn't on A4"
pdfinfo "${jobs[1]}" | grep -q '^Page size: *792 x 612' || fail "the second job isn't on a Letter lying on its side"
echo "printed well"
