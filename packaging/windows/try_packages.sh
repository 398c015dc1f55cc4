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

# expect_text FILE TEXT...: all the texts are in the file.
expect_text() {
  local text file=$1
  expect_file "$file"
  shift
  for text in "$@"; do
    grep -qF -- "$text" "$file" || fail "$file does not contain: $text"
  done
}

expect_nothing() { ! [ -e "$1" ] || fail "$1 is still there: $(ls -A "$1" 2>/dev/null | tr '\n' ' ')"; }

# try_programs FOLDER: both programs convert, and the settings stay in that folder.
try_programs() {
  local work=$prefix/work
  rm -rf "$work" && mkdir "$work"
  cp "$1/examples/frontplate.dxf" "$work"
  (cd "$work" && wine "$1/quillon-convert.exe" --no-config --quiet frontplate.dxf -o one.scr)
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

# expect_licences FOLDER: what the licences of the linked libraries ask for.
expect_licences() {
  expect_text "$1/LICENSE.txt" "Permission is hereby granted"
  expect_text "$1/licenses/LGPL-3.0.txt" 'GNU LESSER GENERAL PUBLIC LICENSE' '4. Combined Works.'
  expect_text "$1/licenses/GPL-3.0.txt" 'GNU GENERAL PUBLIC LICENSE' '15. Disclaimer of Warranty.'
  expect_text "$1/licenses/qt.txt" 'The Qt Company' 'LGPL-3' 'harfbuzz'
  expect_text "$1/licenses/qt-translations.txt" 'The Qt Company'
  expect_text "$1/licenses/gcc-runtime.txt" 'GCC RUNTIME LIBRARY EXCEPTION'
  expect_text "$1/licenses/mingw-w64.txt" 'winpthreads' 'Permission is hereby granted'
  expect_text "$1/licenses/cli11.txt" 'Redistributions in binary form'
  expect_text "$1/licenses/README.txt" "Quillon $version is" 'Qt 6.' 'qt6-base' \
    'packaging/windows/build_qt.sh FOLDER' 'packaging/windows/build.sh --qt FOLDER'
}

# What the registry has of types of files, and of programs that are found by their names.
registry() {
  local part
  for part in 'Classes' 'Microsoft\Windows\CurrentVersion\App Paths'; do
    { wine reg query "HKCU\\Software\\$part" /s || true; } | grep -v '^reg:\|^.$' || true
  done
}

# expect_value KEY NAME TEXT: a text in the registry, below Software of the user; "" is the default.
expect_value() {
  local name=(/v "$2")
  [ -n "$2" ] || name=(/ve)
  wine reg query "HKCU\\Software\\$1" "${name[@]}" 2>/dev/null | tr -d '\r' | grep -qF "REG_SZ    $3" ||
    fail "the registry has no $3 at $1 $2"
}

# Explorer offers Quillon for drawings, and Start finds the programs by their names.
expect_registration() {
  local folder paths='Microsoft\Windows\CurrentVersion\App Paths' work=$prefix/named
  folder=$(wine winepath -w "$installed" | tr -d '\r')
  for class in 'Applications\quillon.exe' 'Quillon.Drawing'; do
    expect_value "Classes\\$class\\shell\\open\\command" "" "\"$folder\\quillon.exe\" \"%1\""
    expect_value "Classes\\$class\\DefaultIcon" "" "\"$folder\\quillon.exe\",0"
  done
  expect_value 'Classes\Applications\quillon.exe' FriendlyAppName Quillon
  expect_value 'Classes\Applications\quillon.exe\SupportedTypes' .dxf ""
  expect_value 'Classes\Quillon.Drawing' "" "DXF drawing"
  expect_value 'Classes\.dxf\OpenWithProgids' Quillon.Drawing ""
  expect_value "$paths\\quillon.exe" "" "$folder\\quillon.exe"
  expect_value "$paths\\quillon-convert.exe" "" "$folder\\quillon-convert.exe"
  mkdir "$work"
  cp "$installed/examples/frontplate.dxf" "$work"
  for_all_users "$paths\\quillon-convert.exe"
  (cd "$work" && timeout 120 "$here/wine.sh" start /wait quillon-convert.exe --no-config --quiet frontplate.dxf -o one.scr)
  expect_file "$work/one.scr"
  expect_opening "$work"
}

# for_all_users KEY: Wine looks for programs and types of files only among those of all users, while
# Windows also has those of one.
for_all_users() {
  wine reg copy "HKCU\\Software\\$1" "HKLM\\Software\\$1" /s /f >/dev/null
}

# expect_opening FOLDER: "Open with" opens the window with the drawing, whose name has a space.
expect_opening() {
  local patience=60
  cp "$1/frontplate.dxf" "$1/two words.dxf"
  for_all_users 'Classes\Quillon.Drawing'
  timeout 120 "$here/wine.sh" start /progidopen Quillon.Drawing \
    "$(wine winepath -w "$1/two words.dxf" | tr -d '\r')" >/dev/null
  while ! pgrep -f "quillon\.exe\"? \"?Z:.*$(basename "$prefix").named.two words\.dxf" >/dev/null; do
    [ "$((patience -= 1))" -gt 0 ] || fail "Quillon.Drawing does not open a drawing"
    sleep 1
  done
  wine taskkill /f /im quillon.exe >/dev/null
}

# Where another program has the file type and values of its own, all of that stays.
try_registration_beside_others() {
  local classes='HKCU\Software\Classes'
  wine reg add "$classes\\.dxf" /ve /d Other.Drawing /f >/dev/null
  wine reg add "$classes\\.dxf\\OpenWithProgids" /v Other.Drawing /f >/dev/null
  wine reg add "$classes\\Applications\\quillon.exe" /v NoStartPage /f >/dev/null
  registry >"$prefix/registry"
  wine "$setup" /S
  expect_value 'Classes\.dxf' "" Other.Drawing
  expect_value 'Classes\.dxf\OpenWithProgids' Quillon.Drawing ""
  uninstall
  registry | diff "$prefix/registry" - || fail "the uninstaller changes what others have registered"
}

(cd "$packages" && sha256sum --check --quiet SHA256SUMS) || fail "the sums are wrong"
[ "$(wc -l <"$packages/SHA256SUMS")" -eq "$(find "$packages" -name 'Quillon-*' | wc -l)" ] ||
  fail "a package has no sum"

setup=$packages/Quillon-$version-setup.exe
registry >"$prefix/registry"
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
expect_licences "$installed"
expect_file "$shortcut"
key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillon'
wine reg query "$key" /v DisplayVersion | grep -q "$version" || fail "no entry in the list of programs"
[ "$(settings_language "$installed")" = 10000 ] || fail "the program is not in English"
try_programs "$installed"
expect_registration

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
registry | diff "$prefix/registry" - || fail "the uninstaller leaves something in the registry"
try_registration_beside_others

(cd "$prefix" && unzip -q "$packages/Quillon-$version-portable.zip")
portable=$prefix/Quillon-$version
find "$home/AppData" -type f | sort >"$prefix/before"
expect_licences "$portable"
try_programs "$portable"
find "$home/AppData" -type f ! -path '*/Temp/*' | sort >"$prefix/after"
[ -z "$(comm -13 "$prefix/before" "$prefix/after")" ] ||
  fail "the portable program wrote $(comm -13 "$prefix/before" "$prefix/after")"
echo "The installer and the portable archive work."
