#!/usr/bin/env bash
# Makes pages of the engine's lines that the tests have reached, and fails when they are too few.
# Takes the folder of a build of the preset "asan" in which the tests have run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=$1
root=$PWD
least=95
all=$build/all.info
engine=$build/engine.info

# Names of sources may be relative to the folder of the build, where ccache has a base directory.
lcov --quiet --capture --directory "$build" --base-directory "$(readlink -f "$build")" \
  --output-file "$all"
lcov --quiet --output-file "$engine" --extract "$all" "$root/src/dxf/*" "$root/src/base/*" \
  "$root/src/geometry/*" "$root/src/eagle/*" "$root/src/rules/*" "$root/src/classic/*" \
  "$root/src/convert/*" "$root/src/errors/*" "$root/src/texts/*" "$root/src/settings/*"
rm -rf "$build/report"
genhtml --quiet --prefix "$root" --title Quillon --output-directory "$build/report" "$engine"

# Lines found and lines reached, over all files.
awk -F: -v least=$least -v report="$build/report/index.html" '
  /^LF:/ { found += $2 }
  /^LH:/ { hit += $2 }
  END {
    share = found > 0 ? 100 * hit / found : 0
    printf "The tests reach %d of %d lines of the engine: %.1f of 100. See %s\n", hit, found, share,
           report
    exit share < least
  }' "$engine"
