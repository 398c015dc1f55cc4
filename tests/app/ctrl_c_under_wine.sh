#!/usr/bin/env bash
# ctrl_c_under_wine.sh WINE PROGRAM: presses Ctrl-C in a terminal while the Windows program converts
# an endless drawing, and expects a clean cancel.
set -euo pipefail
wine=$(readlink -f "$1")
program=$(readlink -f "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() {
  echo "ctrl_c_under_wine.sh: $*" >&2
  cat shown >&2 || true
  exit 1
}

# Nested blocks that multiply to endless work without output.
{
  printf '0\nSECTION\n2\nBLOCKS\n'
  for level in 0 1 2 3 4 5 6 7 8 9 10 11 12 13; do
    printf '0\nBLOCK\n8\n0\n2\nL%s\n70\n0\n10\n0\n20\n0\n' "$level"
    for _ in 1 2 3 4 5 6 7 8 9 10; do printf '0\nINSERT\n8\n0\n2\nL%s\n10\n0\n20\n0\n' $((level + 1)); done
    printf '0\nENDBLK\n8\n0\n'
  done
  printf '0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nINSERT\n8\n0\n2\nL0\n10\n0\n20\n0\n0\nENDSEC\n0\nEOF\n'
} >part.dxf

press_ctrl_c() {
  for _ in $(seq 300); do
    if compgen -G '.quillon-*.tmp' >/dev/null; then break; fi
    sleep 0.1
  done
  sleep 0.5
  printf '\003'
  # The terminal must stay open until the program has ended.
  for _ in $(seq 200); do
    if [ -e part.scr ]; then break; fi
    sleep 0.1
  done
  sleep 1
}

"$wine" cmd /c exit </dev/null >/dev/null 2>&1
result=0
press_ctrl_c | timeout -k 5 60 script --quiet --return --command \
  "'$wine' '$program' part.dxf --language en" /dev/null >shown 2>&1 || result=$?
[ "$result" -eq 130 ] || fail "the exit code is $result"
[ -s part.scr ] || fail "there is no script"
tail -n 1 part.scr | grep -q '^Window Fit;' || fail "the script has no trailer"
! compgen -G '.quillon-*.tmp' >/dev/null || fail "a temporary file is left"
grep -aq 'Interrupt by user' shown || fail "nothing was said"
