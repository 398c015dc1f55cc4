#!/usr/bin/env bash
# package.sh BUILD-FOLDER: packages the programs of a Windows build as an installer and a portable
# archive, in BUILD-FOLDER/packages, with their sums in SHA256SUMS, and tries both out under Wine.
set -euo pipefail

program=$(basename "$0")
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
root=$(readlink -f "$here/../..")
build=$(readlink -f "${1:?package.sh BUILD-FOLDER}")
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"
version=$(sed -n 's/^project(Quillon VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
packages=$build/packages

# text_file SOURCE TARGET: converts a text to Windows line ends.
text_file() { sed 's/\r*$/\r/' "$1" >"$2"; }

# The version of Qt that the build was configured with.
qt_version() {
  local qt
  qt=$(sed -n 's/^QUILLON_WINDOWS_QT:[A-Z]*=//p' "$build/CMakeCache.txt")
  sed -n 's/^set(PACKAGE_VERSION "\(.*\)")/\1/p' "$qt/lib/cmake/Qt6/Qt6ConfigVersionImpl.cmake" |
    grep . || die "$qt says no version of Qt"
}

# Licences of what is linked into the programs, taken from its Debian packages.
licences() {
  local target=$stage/licenses qt
  mkdir -p "$target"
  text_file "$root/LICENSE" "$stage/LICENSE.txt"
  qt=$(qt_version)
  sed "s/@QT_VERSION@/$qt/; s/@VERSION@/$version/" "$here/licenses.txt" | sed 's/$/\r/' >"$target/README.txt"
  text_file /usr/share/common-licenses/LGPL-3 "$target/LGPL-3.0.txt"
  text_file /usr/share/common-licenses/GPL-3 "$target/GPL-3.0.txt"
  text_file /usr/share/doc/qt6-base-dev/copyright "$target/qt.txt"
  text_file /usr/share/doc/qt6-translations-l10n/copyright "$target/qt-translations.txt"
  text_file /usr/share/doc/gcc-mingw-w64-base/copyright "$target/gcc-runtime.txt"
  text_file /usr/share/doc/mingw-w64-common/copyright "$target/mingw-w64.txt"
  text_file /usr/share/doc/libcli11-dev/copyright "$target/cli11.txt"
  grep -q 'RUNTIME LIBRARY EXCEPTION' "$target/gcc-runtime.txt"
  grep -q winpthreads "$target/mingw-w64.txt"
}

fill_stage() {
  mkdir -p "$stage/examples" "$stage/help"
  local name
  for name in quillon quillon-convert; do
    x86_64-w64-mingw32-strip -o "$stage/$name.exe" "$build/src/$name.exe"
  done
  "$root/tools/make_chm.sh" "$stage" >/dev/null
  cp -r "$root/help/de" "$root/help/en" "$stage/help"
  cp "$root"/help/*.css "$root"/help/*.png "$stage/help"
  cp "$root"/examples/*.dxf "$root"/examples/*.lay "$stage/examples"
  licences
}

# What the installer brings, in an order that does not depend on the file system.
list_for_installer() {
  local folder
  (cd "$stage" && find . -type d -printf '%P\n' | LC_ALL=C sort) | while read -r folder; do
    # shellcheck disable=SC2016  # a variable of the installer
    printf 'SetOutPath "$INSTDIR%s"\n' "${folder:+\\${folder//\//\\}}"
    (cd "$stage" && find "./$folder" -maxdepth 1 -type f -printf '%P\n' | LC_ALL=C sort) |
      sed "s|.*|File \"$stage/${folder:+$folder/}&\"|"
  done
}

# What the uninstaller removes: exactly these files and folders.
list_for_uninstaller() {
  # shellcheck disable=SC2016,SC1003  # a variable of the installer
  (cd "$stage" && find . -type f -printf 'Delete "$INSTDIR\\%P"\n' | LC_ALL=C sort &&
    find . -mindepth 1 -type d -printf 'RMDir "$INSTDIR\\%P"\n' | LC_ALL=C sort --reverse) | tr / '\\'
}

# pack FOLDER: both packages, there. All files get the time of the last commit, so that the same
# programs give the same packages.
pack() {
  local target=$1
  stage=$target/Quillon-$version
  rm -rf "$target"
  mkdir -p "$target"
  fill_stage
  find "$stage" -exec touch --date "@$SOURCE_DATE_EPOCH" {} +
  list_for_installer >"$target/install.nsh"
  list_for_uninstaller >"$target/uninstall.nsh"
  (cd "$here" && makensis -V2 -WX "-DVERSION=$version" "-DINSTALL=$target/install.nsh" \
    "-DLIST=$target/uninstall.nsh" "-DLICENSE=$stage/LICENSE.txt" \
    "-DICON=$build/src/quillon-resources/icon.ico" \
    "-DOUTPUT=$target/Quillon-$version-setup.exe" installer.nsi)
  "$root/tools/make_zip.py" "$target/Quillon-$version-portable.zip" "$stage"
  rm -r "$stage" "$target/install.nsh" "$target/uninstall.nsh"
  (cd "$target" && sha256sum -- "Quillon-$version"-*) >"$target/sums"
  mv "$target/sums" "$target/SHA256SUMS"
}

# The second time is another one, with another time zone, language and mask for new files, none of
# which may show.
pack_again() {
  local again=$build/packages.again
  sleep 2
  (umask 077 && export TZ=Pacific/Auckland LC_ALL=C.UTF-8 && pack "$again")
  diff -r "$packages" "$again" || die "packing twice gives different packages"
  rm -r "$again"
}

SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct 2>/dev/null || echo 315532800)}
export SOURCE_DATE_EPOCH
pack "$packages"
pack_again
"$here/try_packages.sh" "$packages" "$version"
ls -l "$packages" >&2
