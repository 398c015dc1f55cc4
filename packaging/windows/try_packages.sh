#!/usr/bin/env bash
# try_packages.sh FOLDER VERSION: installs, runs, converts and uninstalls under Wine, then does the
# same with the portable archive. Needs a display.
set -euo pipefail

here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
packages=$(readlink -f "$1")
version=$2
prefix=$(mktemp -d)
export WINEPREFIX=$prefix/wine
end() {
  WINEPREFIX=$WINEPREFIX /usr/lib/wine/wineserver64 -k 2>/dev/null || true
  rm -rf "$prefix"
}
trap end EXIT

wine() { "$here/wine.sh" "$@"; }
fail() {
  echo "try_packages.sh: $*" >&2
  exit 1
}
expect_file() { [ -s "$1" ] || fail "$1 is missing"; }
expect_nothing() { ! [ -e "$1" ] || fail "$1 is still there: $(ls -A "$1" 2>/dev/null | tr '\n' ' ')"; }

# try_programs FOLDER: both programs convert, and the settings stay in that folder.
try_programs() {
  local work=$prefix/work
  rm -rf "$work" && mkdir "$work"
  cp "$1/examples/frontplate.dxf" "$work"
  (cd "$work" && wine "$1/quillon-convert.exe" --quiet frontplate.dxf -o one.scr)
  expect_file "$work/one.scr"
  (cd "$work" && wine "$1/quillon.exe" /x:frontplate.dxf /s:two.scr /b:frontplate /w:o /ru)
  cmp "$work/one.scr" "$work/two.scr"
  (cd "$work" && wine "$1/quillon.exe" /x:frontplate.dxf /s:three.scr /w:o /rx)
  expect_file "$work/frontplate.scr"
  expect_file "$1/quillon.cfh"  # created by the program in its own folder
}

# settings_language FOLDER: the language in the settings in that folder.
settings_language() { sed -n 's/^language=\([0-9]*\).*/\1/p' "$1/larkspur.ini"; }

# expect_refusal WHAT COMMAND...: while a program in the installation folder is running, a silent
# command must fail with exit code 2 and a message, and change nothing.
expect_refusal() {
  local what=$1 result=0 runs
  shift
  mkfifo "$prefix/input"
  wine "$installed/quillon-convert.exe" - <"$prefix/input" >/dev/null 2>&1 &
  runs=$!
  exec 8>"$prefix/input" # the program waits for its drawing until this is closed
  sleep 3
  echo old >"$installed/LICENSE.txt"
  "$@" >"$prefix/said" 2>&1 8>&- || result=$?
  exec 8>&-
  wait "$runs" || true # an empty drawing is refused
  rm "$prefix/input"
  [ "$result" -eq 2 ] || fail "$what over a running program exits with $result"
  grep -q "quillon-convert.exe" "$prefix/said" || fail "$what over a running program says nothing"
  [ "$(cat "$installed/LICENSE.txt")" = old ] || fail "$what over a running program changes files"
  expect_file "$installed/uninstall.exe"
}

setup=$packages/Quillon-$version-setup.exe
wine "$setup" /S
user=$(cd "$WINEPREFIX/drive_c/users" && find . -mindepth 1 -maxdepth 1 -type d ! -name Public -printf '%P')
home=$WINEPREFIX/drive_c/users/$user
installed=$home/AppData/Local/Programs/Quillon
shortcut="$home/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Quillon.lnk"
for file in quillon.exe quillon-convert.exe Larkspur.chm help/en/main-window.html \
  examples/frontplate.dxf LICENSE.txt licenses/LGPL-3.0.txt licenses/GPL-3.0.txt \
  licenses/gcc-runtime.txt licenses/mingw-w64.txt uninstall.exe; do
  expect_file "$installed/$file"
done
expect_file "$shortcut"
key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillon'
wine reg query "$key" /v DisplayVersion | grep -q "$version" || fail "no entry in the list of programs"
[ "$(settings_language "$installed")" = 10000 ] || fail "the program is not in English"
try_programs "$installed"

expect_refusal "installing" wine "$setup" /S
sed -i 's/^language=10000/language=0/' "$installed/larkspur.ini"
wine "$setup" /S
[ "$(settings_language "$installed")" = 0 ] || fail "installing again changes the language"
! grep -qx old "$installed/LICENSE.txt" || fail "installing again replaces nothing"

# Run from another folder, the uninstaller stays in the foreground.
cp "$installed/uninstall.exe" "$prefix"
uninstall() { wine "$prefix/uninstall.exe" /S "_?=$(wine winepath -w "$installed" | tr -d '\r')"; }
expect_refusal "uninstalling" uninstall
uninstall
expect_nothing "$installed"
expect_nothing "$shortcut"
! wine reg query "$key" >/dev/null 2>&1 || fail "the entry in the list of programs is still there"

(cd "$prefix" && unzip -q "$packages/Quillon-$version-portable.zip")
portable=$prefix/Quillon-$version
find "$home/AppData" -type f | sort >"$prefix/before"
try_programs "$portable"
find "$home/AppData" -type f ! -path '*/Temp/*' | sort >"$prefix/after"
[ -z "$(comm -13 "$prefix/before" "$prefix/after")" ] ||
  fail "the portable program wrote $(comm -13 "$prefix/before" "$prefix/after")"
echo "The installer and the portable archive work."
