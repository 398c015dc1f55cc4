#!/usr/bin/env bash
# Makes all files of a release, and checks that everything names the same version:
#
#   packaging/release.sh --check TAG               only checks
#   packaging/release.sh OUT-FOLDER [--check TAG]  checks, if told to, and makes the files
#
# The files are the sources, the Debian packages, the packages for Windows with the sources of their
# Qt, the page, the container image, the manifests for package managers, and SHA256SUMS of all. It
# needs a Debian machine of the kind amd64. QUILLON_WINDOWS_QT can name a static Qt for Windows, made
# by packaging/windows/build_qt.sh; otherwise that is built first, which takes long.
set -euo pipefail

program=$(basename "$0")
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"

usage() { sed -n '/^#   /s/^#   //p' "$root/packaging/release.sh"; }

out=
tag=
while [ $# -gt 0 ]; do
  case $1 in
    --check) tag=${2:?--check TAG} && shift ;;
    -h | --help) usage && exit 0 ;;
    -*) usage >&2 && exit 2 ;;
    *) { [ -z "$out" ] && [ -n "$1" ]; } || { usage >&2 && exit 2; }; out=$1 ;;
  esac
  shift
done
[ -n "$out$tag" ] || { usage >&2 && exit 2; }

version=$(sed -n 's/^project(Quillon VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
[ -n "$version" ] || die "CMakeLists.txt names no version"

# What is wrong about a tag is said all at once.
check() {
  local wrong=()
  [ "$tag" = "v$version" ] ||
    wrong+=("The tag is $tag, but the version in CMakeLists.txt is $version, whose tag is v$version.")
  grep -qE "^## \[${version//./\\.}\] - [0-9]{4}-[0-9]{2}-[0-9]{2}\$" "$root/CHANGELOG.md" ||
    wrong+=("CHANGELOG.md has no heading \"## [$version] - YEAR-MONTH-DAY\".")
  ! sed -n '/^## \[Unreleased\]/,/^## \[[0-9]/p' "$root/CHANGELOG.md" | grep -q '^- ' ||
    wrong+=("CHANGELOG.md still has changes under \"[Unreleased]\", which would be in this release.")
  [ -z "$(git -C "$root" status --porcelain 2>/dev/null)" ] ||
    wrong+=("The checkout has changes that are not committed.")
  [ ${#wrong[@]} -eq 0 ] || die "this is not a release yet:$(printf '\n  %s' "${wrong[@]}")"
}

make_sources() {
  say "== Sources"
  git -C "$root" archive --prefix="quillon-$version/" HEAD | gzip -9n >"$out/quillon-$version.tar.gz"
  # The headers that parse the command line, for who builds where no network is.
  need_header libcli11-dev CLI/CLI.hpp
  install_missing
  mkdir "$work/cli11"
  cp -r /usr/include/CLI "$work/cli11"
  cp /usr/share/doc/libcli11-dev/copyright "$work/cli11/LICENSE"
  chmod -R u=rwX,go=rX "$work/cli11"
  tar -c -C "$work" --sort=name --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" \
    cli11 | gzip -9n >"$out/quillon-$version-cli11.tar.gz"
}

make_debian() {
  say "== Debian packages"
  need_command dpkg-dev dpkg-buildpackage
  need_command debhelper dh
  need_command help2man help2man
  need_command g++ c++
  need_command cmake cmake
  need_command ninja-build ninja
  need_header libcli11-dev CLI/CLI.hpp
  need_qt
  install_missing
  "$root/packaging/debian/build.sh" "$work/debian"
  mv "$work"/debian/*.deb "$out"
}

# The licence of Qt asks for its sources at the same place.
make_windows() {
  say "== Packages for Windows"
  local qt=${QUILLON_WINDOWS_QT:-$root/build/windows-qt-own}
  [ -n "${QUILLON_WINDOWS_QT:-}" ] || [ -e "$qt/complete" ] || "$root/packaging/windows/build_qt.sh" "$qt"
  compgen -G "$qt/source/qt6-base_*.dsc" >/dev/null ||
    die "$qt has no sources of Qt, which have to be offered too; packaging/windows/build_qt.sh keeps them"
  "$root/packaging/windows/build.sh" --qt "$qt" --programs --package
  cp "$root/build/windows/packages/Quillon-$version"-* "$qt"/source/* "$out"
}

make_page() {
  say "== The page"
  need_web
  need_command g++ c++
  install_missing
  configure web
  cmake --build "$root/build/web"
  cp "$root/build/web/quillon-page-$version.zip" "$out"
}

# Any program for containers loads this archive, for example: podman load -i ARCHIVE
make_image() {
  say "== Container image"
  has_command podman || need_command buildah buildah
  install_missing
  local name=quillon-convert:$version tool=buildah
  if has_command podman; then tool=podman; fi
  "$root/packaging/container/build.sh" "$name"
  "$tool" push "$name" "oci-archive:$out/quillon-convert-$version-image.tar:$name"
}

make_manifests() {
  say "== Manifests for package managers"
  "$root/packaging/fill_manifests.py" "$version" "$out" "$work/manifests"
  "$root/tools/make_zip.py" "$out/quillon-$version-manifests.zip" "$work/manifests" \
    "quillon-$version-manifests"
}

sum_up() {
  rm -f "$out/SHA256SUMS"
  (cd "$out" && sha256sum -- *) >"$work/sums"
  cp "$work/sums" "$out/SHA256SUMS"
  say "$program: all files are in $out"
}

[ -z "$tag" ] || check
if [ -z "$out" ]; then
  say "$program: $tag is ready to be released"
  exit 0
fi
mkdir -p "$out"
out=$(readlink -f "$out")
[ -z "$(ls -A "$out")" ] || die "$out is not empty: a release contains only what is made for it"
SOURCE_DATE_EPOCH=$(git -C "$root" log -1 --format=%ct 2>/dev/null) ||
  die "$root is no checkout with a commit, or git is missing"
export SOURCE_DATE_EPOCH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$root"
make_sources
make_debian
make_windows
make_page
make_image
make_manifests
sum_up
