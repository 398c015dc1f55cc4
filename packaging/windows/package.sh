#!/usr/bin/env bash
# package.sh BUILD-FOLDER: packages the programs of a Windows build as an installer and a portable
# archive, in BUILD-FOLDER/packages, and tries both out under Wine.
set -euo pipefail

here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
root=$(readlink -f "$here/../..")
build=$(readlink -f "${1:?package.sh BUILD-FOLDER}")
version=$(sed -n 's/^project(Quillon VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
packages=$build/packages
stage=$packages/stage

# text_file SOURCE TARGET: converts a text to Windows line ends.
text_file() { sed 's/\r*$/\r/' "$1" >"$2"; }

# Licences of what is linked into the programs, taken from its Debian packages.
licences() {
  local target=$stage/licenses
  mkdir -p "$target"
  text_file "$root/LICENSE" "$stage/LICENSE.txt"
  text_file "$here/licenses.txt" "$target/README.txt"
  text_file /usr/share/common-licenses/LGPL-3 "$target/LGPL-3.0.txt"
  text_file /usr/share/common-licenses/GPL-3 "$target/GPL-3.0.txt"
  text_file /usr/share/doc/qt6-base-dev/copyright "$target/qt.txt"
  text_file /usr/share/doc/gcc-mingw-w64-base/copyright "$target/gcc-runtime.txt"
  text_file /usr/share/doc/mingw-w64-common/copyright "$target/mingw-w64.txt"
  text_file /usr/share/doc/libcli11-dev/copyright "$target/cli11.txt"
  grep -q 'RUNTIME LIBRARY EXCEPTION' "$target/gcc-runtime.txt"
  grep -q winpthreads "$target/mingw-w64.txt"
}

fill_stage() {
  rm -rf "$packages"
  mkdir -p "$stage/examples" "$stage/help"
  for program in quillon quillon-convert; do
    x86_64-w64-mingw32-strip -o "$stage/$program.exe" "$build/src/$program.exe"
  done
  "$root/tools/make_chm.sh" "$stage" >/dev/null
  cp -r "$root/help/de" "$root/help/en" "$stage/help"
  cp "$root"/help/*.css "$root"/help/*.png "$stage/help"
  cp "$root"/examples/*.dxf "$root"/examples/*.lay "$stage/examples"
  licences
}

# What the uninstaller removes: exactly these files and folders.
list_for_uninstaller() {
  (cd "$stage" && find . -type f -printf 'Delete "$INSTDIR\\%P"\n' &&
    find . -mindepth 1 -depth -type d -printf 'RMDir "$INSTDIR\\%P"\n') | tr / '\\'
}

fill_stage
list_for_uninstaller >"$packages/uninstall.nsh"
makensis -V2 "-DVERSION=$version" "-DSTAGE=$stage" "-DLIST=$packages/uninstall.nsh" \
  "-DICON=$build/src/quillon-resources/icon.ico" \
  "-DOUTPUT=$packages/Quillon-$version-setup.exe" "$here/installer.nsi"
mv "$stage" "$packages/Quillon-$version"
(cd "$packages" && zip -qr "Quillon-$version-portable.zip" "Quillon-$version")
"$here/try_packages.sh" "$packages" "$version"
rm -r "$packages/Quillon-$version" "$packages/uninstall.nsh"
ls -l "$packages" >&2
