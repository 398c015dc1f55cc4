#!/usr/bin/env bash
# Builds Quillon for 64-bit Windows, runs its tests under Wine, and packages it.
set -euo pipefail

program="build.sh"
root=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"

usage() {
  cat <<'END'
Usage: packaging/windows/build.sh [--qt FOLDER] [STEP...] [-- CTEST-ARGUMENT...]

Builds with the distribution's mingw-w64. FOLDER contains a static Qt 6.4 built with it, as
packaging/windows/build_qt.sh does; without Qt, only quillon-convert.exe is built. The folder can
also be set with the variable QUILLON_WINDOWS_QT.
Without a step, all steps are run in this order:

  --build    build the programs and their tests in build/windows
  --test     run all tests under Wine; those of the windows on a virtual display
  --package  create an installer and a portable archive in build/windows/packages; needs Qt

Or, instead of --build:

  --programs build the programs alone
END
}

qt=${QUILLON_WINDOWS_QT:-}
steps=()
while [ $# -gt 0 ]; do
  case $1 in
    --qt) qt=${2:?--qt FOLDER} && shift ;;
    --build | --programs | --test | --package) steps+=("${1#--}") ;;
    -h | --help) usage && exit 0 ;;
    --) shift && break ;;
    *) usage >&2 && exit 2 ;;
  esac
  shift
done
ctest_arguments=("$@")
if [ -n "$qt" ]; then
  [ -d "$qt/lib/cmake/Qt6" ] || die "$qt does not contain Qt 6"
  qt=$(readlink -f "$qt")
fi
if [ ${#steps[@]} -eq 0 ]; then
  steps=(build test)
  if [ -n "$qt" ]; then steps+=(package); fi
fi

has_step() { case " ${steps[*]} " in *" $1 "*) ;; *) return 1 ;; esac; }

install_for() {
  need_command g++-mingw-w64-x86-64-posix x86_64-w64-mingw32-g++-posix
  need_command cmake cmake
  need_command ninja-build ninja
  need_command ccache ccache
  need_header libcli11-dev CLI/CLI.hpp
  need_file googletest "/usr/src/googletest/CMakeLists.txt"
  if [ -n "$qt" ]; then
    need_qt
    need_file libgl-dev "/usr/include/GL/gl.h"
    need_command librsvg2-bin rsvg-convert
    need_command icoutils icotool
  fi
  if has_step test || has_step package; then
    need_file wine64 "/usr/lib/wine/wine64"
    need_file wine "/usr/bin/wine"
    if [ -n "$qt" ]; then
      need_command xvfb Xvfb
      need_command openbox openbox
    fi
  fi
  if has_step package; then
    need_command nsis makensis
    need_command fp-utils chmcmd
    need_command python3 python3
    need_command unzip unzip
  fi
  install_missing
}

# build TARGET...: everything without a target.
build() {
  local options=(-DQUILLON_BUILD_WINDOWS=OFF -UQUILLON_WINDOWS_QT)
  if [ -n "$qt" ]; then
    options=(-DQUILLON_BUILD_WINDOWS=ON "-DQUILLON_WINDOWS_QT=$qt")
  fi
  configure windows "${options[@]}"
  cmake --build --preset windows ${1:+--target "$@"}
}

build_programs() {
  if [ -n "$qt" ]; then build quillon quillon-convert; else build quillon-convert; fi
}

# with_display COMMAND...: runs a command with its own invisible display, in a subshell that stops
# its helpers however it ends.
with_display() (
  coproc SERVER { exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null; }
  helpers=$SERVER_PID
  # shellcheck disable=SC2086,SC2154  # a list of numbers
  trap 'kill $helpers 2>/dev/null || true' EXIT
  trap 'exit 130' INT TERM
  read -r -t 60 number <&"${SERVER[0]-}" || die "Xvfb did not start"
  export DISPLAY=:$number
  # Without a window manager, Wine waits for seconds whenever it closes a window.
  openbox >/dev/null 2>&1 &
  helpers="$helpers $!"
  "$@"
)

# Under Wine, windows now and then get the focus late or not at all, so what fails may try again.
run_tests() {
  ctest --preset windows --parallel "$(nproc)" --repeat until-pass:2 "${ctest_arguments[@]}"
}

cd "$root"
install_for
for step in "${steps[@]}"; do
  case $step in
    build) build ;;
    programs) build_programs ;;
    test) if [ -n "$qt" ]; then with_display run_tests; else run_tests; fi ;;
    package) with_display packaging/windows/package.sh build/windows ;;
  esac
done
