#!/bin/sh
# The man page of a program has its options and the sections that a reader looks for, and is read
# without a warning.
#
# Usage: man_page_test.sh PAGE PROGRAM
set -eu
page=$1
program=$2

fail() {
  echo "failed: $1" >&2
  exit 1
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=100 man --warnings --encoding=UTF-8 --local-file "$page" \
  > "$folder/formatted" 2> "$folder/warnings"
[ ! -s "$folder/warnings" ] || fail "$(cat "$folder/warnings")"
col -bx < "$folder/formatted" > "$folder/text"
for section in NAME SYNOPSIS DESCRIPTION OPTIONS EXAMPLES 'EXIT STATUS' FILES 'SEE ALSO'; do
  grep -qx "$section" "$folder/text" || fail "no section $section"
done

# Options of the one program, and items of the other, which also speaks German.
"$program" --help | grep -oE '^  +(-[a-z],)?(--[a-z][a-z-]*|/[a-z]+:?)' |
  tr -d ' ' | tr ',' '\n' > "$folder/options"
[ "$(wc -l < "$folder/options")" -ge 10 ] || fail "the help has few options"
while read -r option; do
  grep -qE -- "^ +(-[a-z], )?${option}(,| |$|[a-z0-9:])" "$folder/text" || fail "no $option"
done < "$folder/options"
# What the parser calls types, and an option whose explanation was taken for its value.
! grep -E 'TEXT:|UINT:|FLOAT:' "$folder/text" || fail "the page has types of the parser"
! grep -E '^ +--[^ ]+ [^ ]+ [A-Z][a-z]' "$folder/text" || fail "an option with its explanation"
