#!/usr/bin/env bash
# Checks the style of the sources: formatting, the .clang-tidy checks, and which folders may include
# which. Takes a configured build folder; without one it skips clang-tidy.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-}
failed=0

fail() {
  printf '%s\n' "$*"
  failed=1
}

check_format() {
  local wrong
  wrong=$(find src tests bench web -name '*.h' -print0 -o -name '*.cpp' -print0 |
    xargs -0 clang-format --dry-run -Werror 2>&1 | sed -n 's/^\([^:]*\):[0-9].*error:.*/\1/p' |
    sort -u) || true
  [ -z "$wrong" ] || fail "These files need clang-format -i:
$wrong"
}

include='^[[:space:]]*#[[:space:]]*include[[:space:]]*'

# check_folders FOLDER ALLOWED...: the folder may include only the allowed folders of src/. Names
# without a folder are files in the same folder.
check_folders() {
  local folder=$1 allowed
  shift
  allowed=$(IFS='|' && printf '%s' "$*")
  grep -rnE "$include"'"[^"]*/' "src/$folder" | grep -vE "include[[:space:]]*\"($allowed)(/|\.h\")" &&
    fail "src/$folder may only include these folders: $*."
  return 0
}

# check_includes FOLDER ALLOWED...: the same for a folder that may not include Qt.
check_includes() {
  grep -rnE "$include"'[<"](Q[A-Z]|Qt|q[a-z]+\.h)' "src/$1" && fail "src/$1 may not include Qt."
  check_folders "$@"
}

# check_threads FOLDER...: these folders have nothing of threads, so that the engine also runs where
# there are none. Atomics are allowed: signals and threads of a program may come across them.
check_threads() {
  local folder
  local header='thread|mutex|shared_mutex|future|condition_variable|semaphore|latch|barrier|stop_token'
  for folder in "$@"; do
    grep -rnE "^[[:space:]]*#[[:space:]]*include[[:space:]]*<($header|pthread\.h)>" "src/$folder" \
      --include='*.h' --include='*.cpp' --exclude='*_windows.cpp' &&
      fail "src/$folder may not use threads."
  done
  return 0
}

# All files of a folder are checked as one, since most of the time goes into the headers that they
# share; their names must therefore differ across the folder. Files of folders with different
# options, and programs, stand alone.
run_clang_tidy() {
  tidy_one() {
    local log
    log=$(clang-tidy --quiet -p "$1" "$2" 2>&1) ||
      { grep -v ' warnings\? generated' <<<"$log" || true; return 1; }
  }
  export -f tidy_one
  local together=$build/tidy
  python3 tools/tidy_units.py "$build" "$together"
  find "$together" -name '*.cpp' -print0 | sort -z |
    xargs -0 -P "$(nproc)" -I{} bash -c 'tidy_one "$@"' tidy "$together" {} ||
    fail "clang-tidy has findings."
}

check_format
python3 tools/check_help.py || fail "The help pages need fixing."
python3 tools/check_messages.py || fail "Every message needs a test that raises it."
# The folders from the ground up.
check_includes base base
check_includes geometry base geometry
check_includes files base files
check_includes texts base texts
check_includes dxf base dxf
check_includes eagle base geometry eagle
check_includes preview base geometry eagle preview
check_includes rules base geometry dxf eagle rules
check_includes classic base geometry dxf eagle rules classic
check_includes exact base geometry dxf eagle rules exact
check_includes convert base geometry files texts dxf eagle rules classic exact convert
check_includes batch base files texts convert batch
check_includes settings base files texts convert settings
check_includes workbench base geometry files texts dxf eagle rules exact preview convert settings workbench
check_includes errors base files texts errors
check_includes app/console app/console
check_includes app/headless base files texts dxf rules preview convert batch errors app/console app/headless
check_includes app/completion convert app/headless app/completion
check_includes app/unattended base files texts rules convert settings errors app/console app/unattended
check_folders windows base geometry files texts preview convert batch settings workbench errors windows
check_folders app/window errors windows app/console app/unattended app/window
check_threads base geometry files texts dxf eagle preview rules classic exact convert batch settings workbench \
  errors
if [ -n "$build" ]; then run_clang_tidy; fi
exit "$failed"
