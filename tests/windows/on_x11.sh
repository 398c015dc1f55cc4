#!/usr/bin/env bash
# Runs a test program on its own display with a window manager. Takes the screen size and the
# program with its arguments; needs Xvfb, openbox and xprop.
set -euo pipefail
size=$1
shift
folder=$(mktemp -d)
pids=()
finish() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$folder"
}
trap finish EXIT

mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 "${size}x24" 3>"$folder/display" 2>/dev/null &
pids+=($!)
read -r number <"$folder/display"
export DISPLAY=:$number
openbox 2>/dev/null &
pids+=($!)
for _ in $(seq 100); do
  if xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; then break; fi
  sleep 0.1
done
QUILLON_DISPLAY=xcb "$@"
