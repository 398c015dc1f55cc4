#!/usr/bin/env bash
# What shells offer for the command line of quillon-convert: every option of its help is in the
# completions of all shells, and those shells that are installed are asked.
#
# Usage: completion_test.sh SHARE-FOLDER QUILLON-CONVERT
set -euo pipefail
share=$1
converter=$2
bash_file=$share/bash-completion/completions/quillon-convert
fish_file=$share/fish/vendor_completions.d/quillon-convert.fish
zsh_file=$share/zsh/site-functions/_quillon-convert
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
failed=0

fail() {
  printf 'failed: %s\n' "$*" >&2
  failed=1
}

# expect WHAT SEEN WANTED: both lists have the same lines in any order.
expect() {
  local seen wanted
  seen=$(sort <<<"$2" | tr '\n' ' ')
  wanted=$(sort <<<"$3" | tr '\n' ' ')
  [ "$seen" = "$wanted" ] || fail "$1: '$seen' instead of '$wanted'"
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir drawings "two words" home
touch part.dxf PART2.DXF "a plate.dxf" part.lay part.txt frame.cfh "two words/in.dxf"

# Each word of the help that is the name of an option.
options=$("$converter" --help |
  grep -oE '^ +(-[a-z0-9], )?--[a-z][a-z-]*' | tr -d ' ' | tr ',' '\n' | sort -u)
[ "$(wc -l <<<"$options")" -gt 50 ] || fail "the help has few options: $options"

# asked_of_bash WORD...: what bash offers for the last word.
asked_of_bash() {
  bash --norc -c 'source "$1"; shift; COMP_WORDS=(quillon-convert "$@"); COMP_CWORD=$#
    $(complete -p quillon-convert | sed "s/.*-F \([^ ]*\).*/\1/")
    [ ${#COMPREPLY[@]} -eq 0 ] || printf "%s\n" "${COMPREPLY[@]}"' bash "$bash_file" "$@"
}
check_bash() {
  expect "bash, options" "$(asked_of_bash -)" "$options"
  expect "bash, part of an option" "$(asked_of_bash --unit m --offset)" $'--offset-x\n--offset-y'
  expect "bash, words" "$(asked_of_bash --unit '')" $'mic\nmm\nmil\ninch'
  expect "bash, part of a word" "$(asked_of_bash --target s)" $'schematic\nsymbol'
  expect "bash, words after =" "$(asked_of_bash --rules = e)" exact
  expect "bash, nothing typed after =" "$(asked_of_bash --rules =)" $'classic\nexact'
  expect "bash, word with a value" "$(asked_of_bash --points h)" hole:
  expect "bash, units" "$(asked_of_bash --drawing-unit in)" inch
  expect "bash, number" "$(asked_of_bash --scale '')" ""
  local folders=$'drawings\nhome\ntwo words'
  expect "bash, drawings" "$(asked_of_bash '')" "$folders"$'\na plate.dxf\npart.dxf\nPART2.DXF'
  expect "bash, layer files" "$(asked_of_bash --layers '')" "$folders"$'\npart.lay'
  expect "bash, any file" "$(asked_of_bash --report pa)" $'part.dxf\npart.lay\npart.txt'
  expect "bash, in a folder" "$(asked_of_bash 'two\ words/')" "two words/in.dxf"
  expect "bash, in quotes" "$(asked_of_bash '"two words/')" "two words/in.dxf"
  expect "bash, after --" "$(asked_of_bash -- p)" part.dxf
  expect "bash, after a switch" "$(asked_of_bash --force p)" part.dxf
}

# asked_of_fish LINE: what fish offers at the end of the line, without descriptions.
asked_of_fish() {
  HOME=$folder/home XDG_CONFIG_HOME=$folder/home XDG_DATA_HOME=$folder/home \
    fish --no-config -c "source '$fish_file'; complete -C '$1'" | cut -f 1
}
check_fish() {
  fish --no-execute "$fish_file" || fail "fish cannot read its completion"
  expect "fish, options" "$(asked_of_fish 'quillon-convert --')" "$(grep -e '^--' <<<"$options")"
  expect "fish, words" "$(asked_of_fish 'quillon-convert --unit ')" $'mic\nmm\nmil\ninch'
  expect "fish, words after =" "$(asked_of_fish 'quillon-convert --rules=e')" --rules=exact
  expect "fish, number" "$(asked_of_fish 'quillon-convert --scale ')" ""
  expect "fish, layer files" "$(asked_of_fish 'quillon-convert --layers part.l')" part.lay
  asked_of_fish 'quillon-convert p' | grep -qx part.dxf || fail "fish offers no drawings"
}

# asked_of_zsh LINE: what zsh's own completion adds at the end of the line, asked in a terminal.
asked_of_zsh() {
  HOME=$folder/home zsh -f "$tests/asked_of_zsh" "$zsh_file" "$1"
}
check_zsh() {
  zsh -n "$zsh_file" || fail "zsh cannot read its completion"
  expect "zsh, options" "$(asked_of_zsh 'quillon-convert -')" "$options"
  expect "zsh, words" "$(asked_of_zsh 'quillon-convert --unit ')" $'mic\nmm\nmil\ninch'
  expect "zsh, word with a value" "$(asked_of_zsh 'quillon-convert --points h')" hole:
  expect "zsh, words after =" "$(asked_of_zsh 'quillon-convert --rules=e')" exact
  expect "zsh, drawings" "$(asked_of_zsh 'quillon-convert p')" part.dxf
  expect "zsh, layer files" "$(asked_of_zsh 'quillon-convert --layers p')" part.lay
}

# In fish's file, options are without their dashes.
for option in $options; do
  grep -qE -- "[ ']${option}[ ']" "$bash_file" || fail "bash's completion lacks $option"
  grep -qE -- "[ {,')]${option}[]+=',} []" "$zsh_file" || fail "zsh's completion lacks $option"
  case $option in
    --*) grep -qE -- " -l ${option#--} " "$fish_file" || fail "fish's completion lacks $option" ;;
    *) grep -qE -- " -s ${option#-} " "$fish_file" || fail "fish's completion lacks $option" ;;
  esac
done
check_bash
if command -v fish >/dev/null; then check_fish; else echo "no fish to ask"; fi
if command -v zsh >/dev/null; then check_zsh; else echo "no zsh to ask"; fi
exit "$failed"
