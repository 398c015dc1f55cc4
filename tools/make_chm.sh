#!/usr/bin/env bash
# Compiles the help pages into Larkspur.chm: make_chm.sh OUTPUT-FOLDER. Needs chmcmd (fp-utils).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
output=$(readlink -f "${1:?make_chm.sh OUTPUT-FOLDER}")
compiler=$(command -v chmcmd) || {
  echo "make_chm.sh: please install fp-utils, which has chmcmd" >&2
  exit 1
}
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cp -r help/. "$stage"
# The compiler keeps the full path of each page that has a context id, so the pages have to lie at
# the root of the file system while it runs.
# shellcheck disable=SC2016  # the inner shell expands these
unshare --map-root-user --mount sh -ec '
  for folder in usr lib lib64; do
    mkdir "$1/$folder"
    mount --rbind "/$folder" "$1/$folder"
  done
  exec chroot "$1" "$2" --no-html-scan /quillon.hhp' sh "$stage" "$(readlink -f "$compiler")"
mv "$stage/Larkspur.chm" "$output"
