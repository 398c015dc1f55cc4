#!/usr/bin/env bash
# Compiles the help pages into Larkspur.chm: make_chm.sh OUTPUT-FOLDER. Needs chmcmd (fp-utils) and
# python3.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
output=$(readlink -f "${1:?make_chm.sh OUTPUT-FOLDER}")
compiler=$(readlink -e "$(command -v chmcmd)") || {
  echo "make_chm.sh: please install chmcmd (package fp-utils)" >&2
  exit 1
}
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cp -r help/. "$stage"
# The compiler stores the full path of each page that has a context id, so the pages must be at the
# root of the file system while it runs: it runs in a chroot, with the libraries that it is linked
# to and those next to them that it loads itself.
mapfile -t files < <(ldd "$compiler" | grep -o '/[^ ]*')
for file in "${files[@]}"; do
  for opened in libpthread.so.0 libdl.so.2; do
    if [ -e "$(dirname "$file")/$opened" ]; then files+=("$(dirname "$file")/$opened"); fi
  done
done
cp -L --parents "$compiler" "${files[@]}" "$stage"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(unshare --map-root-user)
"${as_root[@]}" chroot "$stage" "$compiler" --no-html-scan /quillon.hhp
tools/set_chm_time.py "$stage/Larkspur.chm"
mv "$stage/Larkspur.chm" "$output"
