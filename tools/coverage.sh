#!/usr/bin/env bash
# Writes a coverage report of the engine and fails when coverage is too low. Takes the build folder
# of the preset "asan" in which the tests have run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=$1
root=$PWD
least=95
all=$build/all.info
engine=$build/engine.info

# Source names may be relative to the build folder if ccache has a base directory.
lcov --quiet --capture --directory "$build" --base-directory "$(readlink -f "$build")" \
  --output-file "$all"
lcov --quiet --output-file "$engine" --extract "$all" "$root/src/dxf/*" "$root/src/base/*" \
  "$root/src/geometry/*" "$root/src/eagle/*" "$root/src/rules/*" "$root/src/classic/*" \
  "$root/src/exact/*" "$root/src/preview/*" \
  "$root/src/convert/*" "$root/src/errors/*" "$root/src/texts/*" "$root/src/settings/*"
rm -rf "$build/report"
genhtml --quiet --prefix "$root" --title Quillon --output-directory "$build/report" "$engine"

# Total lines and covered lines.
awk -F: -v least=$least -v report="$build/report/index.html" '
  /^LF:/ { found += $2 }
  /^LH:/ { hit += $2 }
  END {
    share = found > 0 ? 100 * hit / found : 0
    printf "The tests cover %d of %d lines of the engine: %.1f %%. See %s\n", hit, found, share,
           report
    exit share < least
  }' "$engine"
