#!/usr/bin/env bash
# release.sh refuses a tag that is not a release: another version, or a change log without it.
#
# Usage: release_test.sh SOURCE-FOLDER
set -euo pipefail
source=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
  echo "failed: $*" >&2
  exit 1
}

# A checkout of version 2.3.4.
mkdir -p "$folder/packaging" "$folder/tools"
cp "$source/packaging/release.sh" "$folder/packaging"
cp "$source/tools/setup.sh" "$folder/tools"
echo 'project(Quillon VERSION 2.3.4 LANGUAGES CXX)' >"$folder/CMakeLists.txt"

change_log() { printf '%s\n' '# Changelog' '' '## [Unreleased]' '' "$@" >"$folder/CHANGELOG.md"; }
check() { "$folder/packaging/release.sh" --check "$1" >/dev/null 2>"$folder/said"; }

# refused TAG WORDS: with an exit code of its own and a message, and nothing else in the message.
refused() {
  local result=0
  check "$1" || result=$?
  [ "$result" -eq 1 ] || fail "the tag $1 ends with $result"
  printf '%s\n' "release.sh: this is not a release yet:" "  $2" | diff - "$folder/said" ||
    fail "another message of the tag $1"
}

change_log '## [2.3.4] - 2026-11-23' '' '- Something new.'
check v2.3.4 || fail "the tag of the version is refused: $(cat "$folder/said")"
grep -qx 'release.sh: v2.3.4 is ready to be released' "$folder/said" || fail "nothing is said"

other='but the version in CMakeLists.txt is 2.3.4, whose tag is v2.3.4.'
for tag in 2.3.4 v2.3.5 v2.3.4-rc1 v2x3x4; do refused "$tag" "The tag is $tag, $other"; done

heading='CHANGELOG.md has no heading "## [2.3.4] - YEAR-MONTH-DAY".'
change_log '## [2.3.3] - 2026-11-23'
refused v2.3.4 "$heading"
change_log '## [2.3.4]'
refused v2.3.4 "$heading"
change_log '## [2x3x4] - 2026-11-23'
refused v2.3.4 "$heading"
change_log '### Added' '' '- Not released.' '' '## [2.3.4] - 2026-11-23'
refused v2.3.4 'CHANGELOG.md still has changes under "[Unreleased]", which would be in this release.'

# A wrong tag is noticed before anything is made.
result=0
"$folder/packaging/release.sh" "$folder/out" --check v9 2>/dev/null || result=$?
[ "$result" -eq 1 ] || fail "files for a wrong tag end with $result"
[ ! -e "$folder/out" ] || fail "files were made for a wrong tag"

# Without an order there is nothing to do.
for arguments in '' '--check' '--nothing' 'one two'; do
  result=0
  # shellcheck disable=SC2086  # a list of words
  "$folder/packaging/release.sh" $arguments >/dev/null 2>&1 || result=$?
  [ "$result" -ne 0 ] || fail "release.sh $arguments does something"
done
echo "release.sh refuses what is no release"
