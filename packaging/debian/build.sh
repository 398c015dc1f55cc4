#!/usr/bin/env bash
# Builds the Debian packages quillon-convert and quillon from what git has of this checkout, changes
# to its files included, and needs no network: packaging/debian/build.sh OUT-FOLDER
#
# Two builds of one commit give the same packages, in whatever folder they are made.
set -euo pipefail

program=$(basename "$0")
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.." && pwd)
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"

[ $# -eq 1 ] || { say "Usage: packaging/debian/build.sh OUT-FOLDER" && exit 2; }
mkdir -p "$1"
out=$(cd "$1" && pwd)
for command in git dpkg-buildpackage dh; do
  has_command "$command" || die "please install git, dpkg-dev and debhelper"
done
git -C "$root" rev-parse --verify --quiet HEAD >/dev/null || die "$root is no checkout with a commit"

version=$(sed -n 's/^project(Quillon VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
[ -n "$version" ] || die "CMakeLists.txt names no version"
SOURCE_DATE_EPOCH=$(git -C "$root" log -1 --format=%ct)
export SOURCE_DATE_EPOCH

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$work/quillon-$version
export_tree "$source"
umask 022
chmod -R u=rwX,go=rX "$source"
tar -c -C "$work" --sort=name --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" \
  "quillon-$version" | gzip -9n >"$work/quillon_$version.orig.tar.gz"

cp -r "$source/packaging/debian" "$source/debian"
rm "$source/debian/build.sh"
cat >"$source/debian/changelog" <<END
quillon ($version-1) unstable; urgency=medium

  * This version of Quillon; CHANGELOG.md says what is new in it.

 -- The Quillon developers <support@quillon.example>  $(LC_ALL=C date -u -R -d "@$SOURCE_DATE_EPOCH")
END

log=$work/log
say "$program: building, which takes some minutes ..."
# The flags of the caller would make packages of the caller's own.
if ! (cd "$source" && env -u CFLAGS -u CXXFLAGS -u CPPFLAGS -u LDFLAGS LC_ALL=C.UTF-8 TZ=UTC \
  dpkg-buildpackage --unsigned-source --unsigned-changes -j"$(nproc)") >"$log" 2>&1; then
  tail -n 60 "$log" >&2
  die "the packages could not be built"
fi
rm -rf "$source"
mv "$work"/quillon[-_]* "$out"
(cd "$out" && ls -- *.deb)
