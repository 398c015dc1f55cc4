#!/usr/bin/env bash
# Builds the static Qt that Quillon for Windows is linked with, from the distribution's own source
# package and with its mingw-w64: packaging/windows/build_qt.sh OUT-FOLDER
#
# Then: packaging/windows/build.sh --qt OUT-FOLDER. Only what Quillon and its tests need is built,
# which takes the better part of an hour on one core, and some gigabytes while it does. The source
# package stays in OUT-FOLDER/source; to link Quillon with a changed Qt, change what is in
# work/qt there and run this again, which goes on where it ended.
set -euo pipefail

program=$(basename "$0")
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
root=$(readlink -f "$here/../..")
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"

case ${1:--} in -*) set -- ;; esac
[ $# -eq 1 ] || { say "Usage: packaging/windows/build_qt.sh OUT-FOLDER" && exit 2; }
has_command apt-get || die "needs a Debian system, as it builds the source package of Debian's Qt"
mkdir -p "$1"
out=$(readlink -f "$1")
work=$out/work
source=$out/source

install_tools() {
  need_command g++-mingw-w64-x86-64-posix x86_64-w64-mingw32-g++-posix
  need_command cmake cmake
  need_command ninja-build ninja
  need_command perl perl
  need_command dpkg-dev dpkg-source
  need_file qt6-base-dev "/usr/lib/*/cmake/Qt6/Qt6Config.cmake"
  need_file qt6-base-dev-tools "/usr/lib/qt6/libexec/moc"
  need_file libgl-dev "/usr/include/GL/gl.h"
  install_missing
}

# private_apt COMMAND ARGUMENT...: apt with this system's mirrors as places of source packages, which
# leaves the system's own lists as they are.
private_apt() {
  local command=$1
  shift
  "$command" -qq -o Dir::Etc::SourceList="$work/apt/sources.list" -o Dir::Etc::SourceParts=- \
    -o Dir::State::Lists="$work/apt/lists" -o APT::Sandbox::User=root "$@"
}

# The version of the host's tools is that of the libraries, as Qt asks for.
get_source() {
  local version signed="" key=/usr/share/keyrings/debian-archive-keyring.gpg
  version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
  if compgen -G "$source/qt6-base_$version.dsc" >/dev/null; then return; fi
  say "$program: getting the source package qt6-base $version ..."
  mkdir -p "$work/apt/lists/partial" "$source"
  [ -e "$key" ] && signed="[signed-by=$key]"
  # shellcheck disable=SC2016  # these are apt's variables
  apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
    grep -i debian | sort -u | sed "s|^|deb-src $signed |" >"$work/apt/sources.list"
  private_apt apt-get update || die "the lists of source packages could not be fetched"
  (cd "$source" && private_apt apt-get source --download-only --only-source "qt6-base=$version") ||
    die "apt has no source package qt6-base $version"
}

unpack() {
  [ -e "$work/unpacked" ] && return
  rm -rf "$work/qt"
  dpkg-source --no-check -x "$source"/qt6-base_*.dsc "$work/qt" >"$work/log" 2>&1 ||
    { cat "$work/log" >&2 && die "the source package could not be unpacked"; }
  touch "$work/unpacked"
}

# What Quillon does not use, or what Windows has by itself, is left out. Pictures, fonts and regular
# expressions come from Qt's own copies, so that the programs need no libraries.
options=(
  -DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
  -DFEATURE_opengl=OFF -DINPUT_opengl=no -DFEATURE_vulkan=OFF
  -DFEATURE_network=OFF -DFEATURE_sql=OFF -DFEATURE_xml=OFF -DFEATURE_dbus=OFF
  -DFEATURE_concurrent=OFF -DFEATURE_testlib=ON
  -DFEATURE_system_zlib=OFF -DINPUT_libpng=qt -DINPUT_libjpeg=no -DINPUT_freetype=qt
  -DINPUT_harfbuzz=qt -DINPUT_pcre=qt
  -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_pkg_config=OFF -DFEATURE_tabletevent=OFF
)

build() {
  local host
  host=$(dirname "$(compgen -G '/usr/lib/*/cmake/Qt6' | head -n 1)")
  SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$work/qt/debian/changelog" -S Timestamp)
  export SOURCE_DATE_EPOCH
  say "$program: building, which takes long ..."
  cmake -G Ninja -S "$work/qt" -B "$work/build" "-DCMAKE_TOOLCHAIN_FILE=$here/mingw-w64.cmake" \
    -DQT_HOST_PATH=/usr "-DQT_HOST_PATH_CMAKE_DIR=$host" "-DCMAKE_INSTALL_PREFIX=$out" \
    "-DCMAKE_C_FLAGS=-ffile-prefix-map=$work=." "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$work=." \
    "${options[@]}" || die "Qt could not be configured"
  cmake --build "$work/build" || die "Qt could not be built"
  cmake --install "$work/build" >"$work/log" || die "Qt could not be installed in $out"
}

install_tools
mkdir -p "$work"
rm -f "$out/complete"
get_source
unpack
build
for library in Core Gui Widgets PrintSupport Test; do
  [ -s "$out/lib/libQt6$library.a" ] || die "$out has no Qt6$library"
done
compgen -G "$out/plugins/platforms/libqwindows.a" >/dev/null || die "$out has no plugin for Windows"
touch "$out/complete"
say "$program: done; now: packaging/windows/build.sh --qt $out"
