#!/usr/bin/env bash
# Builds the programs for Windows twice, in different folders, time zones and languages, and compares
# them; that the same programs give the same packages is checked by package.sh. Called by
# ./test --packages with a static Qt in QUILLON_WINDOWS_QT, as for build.sh.
set -euo pipefail

program=$(basename "$0")
root=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"

[ -n "${QUILLON_WINDOWS_QT:-}" ] || die "needs QUILLON_WINDOWS_QT"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
SOURCE_DATE_EPOCH=$(git -C "$root" log -1 --format=%ct)
export SOURCE_DATE_EPOCH
# A compiler cache could give the second build what the first one has made.
export CCACHE_DISABLE=1

# build_in FOLDER: the programs of this checkout in a copy of it.
build_in() {
  say "$program: building in $1, which takes some minutes ..."
  export_tree "$1"
  "$1/packaging/windows/build.sh" --programs >"$work/log" 2>&1 ||
    { tail -n 60 "$work/log" >&2 && die "the programs could not be built"; }
}

build_in "$work/one"
(umask 077 && export TZ=Pacific/Auckland LC_ALL=C.UTF-8 && build_in "$work/elsewhere/the-second-one")
for name in quillon quillon-convert; do
  cmp "$work/one/build/windows/src/$name.exe" \
    "$work/elsewhere/the-second-one/build/windows/src/$name.exe" ||
    die "two builds of $name.exe differ"
done
say "$program: two builds give the same programs"
