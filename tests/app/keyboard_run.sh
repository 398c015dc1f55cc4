#!/usr/bin/env bash
# From an empty settings file to a converted drawing with the keyboard only, in a real window under
# a window manager. Takes the program and a drawing; needs Xvfb, openbox and xdotool.
set -euo pipefail
program=$1
drawing=$2
folder=$(mktemp -d)
pids=()
finish() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$folder"
}
trap finish EXIT

fail() {
  echo "keyboard run: $*" >&2
  exit 1
}
# wait_for COMMAND...: waits until it succeeds, at most 20 seconds.
wait_for() {
  for _ in $(seq 200); do
    if "$@" >/dev/null 2>&1; then return 0; fi
    sleep 0.1
  done
  fail "waited in vain for: $*"
}
shows() { xdotool search --onlyvisible --name "$1"; }
shows_no() { ! shows "$1"; }

cp "$program" "$drawing" "$folder"
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$folder/display" 2>/dev/null &
pids+=($!)
read -r number <"$folder/display"
export DISPLAY=:$number
openbox 2>/dev/null &
pids+=($!)
cd "$folder"
env -u QT_QPA_PLATFORM ./quillon &
pids+=($!)
quillon=$!

wait_for shows '^Quillon$'
wait_for xdotool search --onlyvisible --name '^Quillon$' windowactivate --sync
sleep 2 # the splash goes, the main window comes
window=$(xdotool search --onlyvisible --name '^Quillon$' | tail -n 1)
xdotool windowactivate --sync "$window"
xdotool key --clearmodifiers alt+x ctrl+a
xdotool type --delay 10 "$folder/$(basename "$drawing")"
xdotool key Tab Tab ctrl+a
xdotool type --delay 10 "$folder/out.scr"
xdotool key Return
wait_for shows '^Konversionsreport$'
sleep 0.5
xdotool key Return
wait_for shows_no '^Konversionsreport$'
[ -s "$folder/out.scr" ] || fail "no script was written"
tail -n 1 "$folder/out.scr" | grep -q '^Window Fit;' || fail "the script is incomplete"
sleep 0.5
xdotool key alt+b
wait_for eval "! kill -0 $quillon"
[ ! -e "$folder/larkspur.ini" ] || fail "settings were saved without being asked"
echo "keyboard run: $(wc -l <"$folder/out.scr") lines written"
