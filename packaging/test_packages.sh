#!/usr/bin/env bash
# Builds the Debian packages twice, checks them, and installs, uses and removes them in a bare system
# in a folder of its own, which debootstrap makes from the mirror that apt uses here. Needs root for
# that. Called by ./test --packages.
#
# QUILLON_BARE_SYSTEM names a folder with such a system, made before, which is copied.
set -euo pipefail

program=$(basename "$0")
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"
release=bookworm

install_tools() {
  need_command dpkg-dev dpkg-buildpackage
  need_command debhelper dh
  need_command help2man help2man
  need_command lintian lintian
  need_command appstream appstreamcli
  need_command desktop-file-utils desktop-file-validate
  need_command debootstrap debootstrap
  need_command cmake cmake
  need_command ninja-build ninja
  need_command g++ c++
  need_header libcli11-dev CLI/CLI.hpp
  need_qt
  install_missing
}

# The second build has another folder, time zone and mask for new files, none of which may show.
build_twice() {
  say "== Two builds of the packages"
  mkdir "$work/one" "$work/two" "$work/elsewhere"
  "$root/packaging/debian/build.sh" "$work/one"
  (umask 077 && TMPDIR=$work/elsewhere TZ=Pacific/Auckland LC_ALL=C \
    "$root/packaging/debian/build.sh" "$work/two")
  local file
  for file in "$work"/one/*.deb "$work"/one/*.orig.tar.gz "$work"/one/*.debian.tar.xz; do
    cmp "$file" "$work/two/$(basename "$file")" || die "two builds differ"
  done
}

check_contents() {
  say "== What the packages contain"
  lintian --info --fail-on error,warning "$work"/one/*.changes || die "lintian has findings"
  dpkg-deb --extract "$(package quillon)" "$work/contents"
  local share=$work/contents/usr/share
  appstreamcli validate --no-net "$share"/metainfo/*.metainfo.xml || die "wrong metadata"
  desktop-file-validate "$share"/applications/*.desktop || die "wrong desktop file"
  [ -e "$share/icons/hicolor/scalable/apps/quillon.svg" ] || die "no icon"
  [ -e "$share/mime/packages/quillon.xml" ] || die "no types of files"
  if dpkg-deb --field "$(package quillon-convert)" Depends | grep -i qt; then
    die "quillon-convert needs Qt"
  fi
}

package() { ls "$work/one/$1"_*.deb; }

# With a mirror from apt's own lists, whatever it is here.
make_bare_system() {
  say "== A bare system"
  if [ -n "${QUILLON_BARE_SYSTEM:-}" ]; then
    cp -a "$QUILLON_BARE_SYSTEM" "$jail"
    return
  fi
  local mirror
  # shellcheck disable=SC2016  # these are apt's variables
  mirror=$(apt-get indextargets --format '$(CODENAME) $(COMPONENT) $(REPO_URI)' \
    'Created-By: Packages' | sed -n "s/^$release main //p" | head -n 1)
  [ -n "$mirror" ] || die "apt has no mirror of $release here; QUILLON_BARE_SYSTEM can name a system"
  debootstrap --variant=minbase "$release" "$jail" "$mirror" >"$work/log" 2>&1 ||
    { tail -n 20 "$work/log" >&2 && die "debootstrap failed"; }
}

# apt_inside ARGUMENT...: this system's apt, with its mirrors, for the packages inside.
apt_inside() {
  DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 apt-get -y -qq --no-install-recommends \
    -o Dir::State="$jail/var/lib/apt" -o Dir::State::status="$jail/var/lib/dpkg/status" \
    -o Dir::Cache="$jail/var/cache/apt" -o Dir::Log="$jail/var/log/apt" \
    -o DPkg::Chroot-Directory="$jail" -o DPkg::Use-Pty=0 "$@" </dev/null >"$work/log" 2>&1 ||
    { cat "$work/log" >&2 && die "apt-get $* failed"; }
}

# inside COMMAND...: what is mounted for it ends with it.
inside() {
  # shellcheck disable=SC2016  # expanded by the inner shell
  unshare --mount --pid --fork sh -c 'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"' "$jail" \
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/tmp/home LC_ALL=C.UTF-8 MANWIDTH=80 "$@"
}

# All files but those where dpkg and apt keep their own accounts, and lists made of what is there.
files_inside() {
  (cd "$jail" && find . \( -path ./tmp -o -path ./proc -o -path ./var/lib/apt -o -path ./var/lib/dpkg \
    -o -path ./var/log -o -path ./var/cache \) -prune -o -print | sort)
}

# try_package NAME TEST: a package by itself. Its dependencies and a reader of man pages come first,
# so that nothing else changes.
try_package() {
  say "== $1 installed"
  apt_inside satisfy "$(dpkg-deb --field "$(package "$1")" Depends), man-db"
  files_inside >"$work/before"
  cp "$(package "$1")" "$jail/tmp"
  apt_inside install "$jail/tmp/$(basename "$(package "$1")")"
  inside "/tmp/source/debian/tests/$2" >"$work/log" 2>&1 || { cat "$work/log" >&2 && die "$1 fails"; }
  inside man "$1" >"$work/page" || die "no man page of $1"
  grep -q '^EXIT STATUS' "$work/page" || die "the man page of $1 is incomplete"
  "use_${1//-/_}"
  apt_inside remove "$1"
  inside dpkg --purge "$1" 2>/dev/null
  files_inside >"$work/after"
  diff "$work/before" "$work/after" || die "$1 leaves files"
  if grep -q "^Package: $1\$" "$jail/var/lib/dpkg/status"; then die "$1 is still known"; fi
}

# The program of this checkout's own build writes the same scripts.
use_quillon_convert() {
  local drawing name
  inside quillon-convert --version >&2
  for drawing in "$root"/examples/*.dxf; do
    name=$(basename "$drawing" .dxf)
    "$built" --quiet --rules exact --unit mm -o "$work/$name.scr" "$drawing"
    inside quillon-convert --quiet --rules exact --unit mm -o "/tmp/$name.scr" \
      "/tmp/source/examples/$name.dxf"
    cmp "$work/$name.scr" "$jail/tmp/$name.scr" || die "$name.scr differs"
  done
}

# A window that stays until it is told to end has found all it needs.
use_quillon() {
  local status=0
  inside env QT_QPA_PLATFORM=offscreen timeout 5 quillon >"$work/log" 2>&1 || status=$?
  [ "$status" -eq 124 ] || { cat "$work/log" >&2 && die "the window ends with $status"; }
}

[ "$(id -u)" -eq 0 ] || die "needs root: it installs packages in a system of its own, by chroot"
has_command apt-get || die "needs a Debian system: it builds and installs Debian packages"
install_tools
work=$(mktemp -d)
chmod 711 "$work" # apt reads as another user
jail=$work/system
trap 'rm -rf --one-file-system "$work"' EXIT
build_twice
check_contents
native=run
if is_configured "$root/build/release"; then native=release; else configure run; fi
cmake --build "$root/build/$native" --target quillon-convert >"$work/log" ||
  { cat "$work/log" >&2 && die "the program to compare with could not be built"; }
built=$root/build/$native/src/quillon-convert
make_bare_system
mkdir -p "$jail/tmp/home" "$jail/tmp/source/debian"
cp -r "$root/packaging/debian/tests" "$jail/tmp/source/debian"
cp -r "$root/examples" "$jail/tmp/source"
apt_inside update
try_package quillon-convert convert
try_package quillon unattended
say "== The packages are fine"
