# shellcheck shell=sh disable=SC2154
# Functions shared by ./quillon and ./test, for any POSIX shell. The caller sets `program`, its own
# name, and `root`, the checkout folder. All messages go to standard error, since a script may be
# going to standard output.

missing=

say() { printf '%s\n' "$*" >&2; }

die() {
  say "$program: $*"
  exit 1
}

has_command() { command -v "$1" >/dev/null 2>&1; }

# need_command PACKAGE COMMAND: requests the package if the command is missing.
need_command() {
  has_command "$2" || missing="$missing $1"
}

# need_header PACKAGE HEADER: requests the package if the header is missing. Where packages cannot
# be installed, only CMake knows all the places to look for a library.
need_header() {
  if has_command apt-get && ! [ -e "/usr/include/$2" ] && ! [ -e "/usr/local/include/$2" ]; then
    missing="$missing $1"
  fi
}

# need_file PACKAGE PATTERN: requests the package if no file matches.
need_file() {
  has_command apt-get || return 0
  for found in $2; do
    if [ -e "$found" ]; then return 0; fi
  done
  missing="$missing $1"
}

# need_qt: requests Qt 6, its own texts in German, and a font.
need_qt() {
  need_file qt6-base-dev "/usr/include/*/qt6/QtWidgets"
  need_file qt6-translations-l10n "/usr/share/qt6/translations/qtbase_de.qm"
  need_file fonts-dejavu-core "/usr/share/fonts/truetype/*/*.ttf"
}

# What makes the page for browsers.
need_web() {
  need_command emscripten em++
  need_command nodejs node
  need_file node-acorn "/usr/share/nodejs/acorn"
  need_command npm npm
  need_command python3 python3
}

say_what_to_install() {
  say "Quillon needs a C++20 compiler (GCC 12 or newer), CMake 3.25, Ninja and CLI11 2.1 or newer;"
  say "its window also Qt 6.4, its tests GoogleTest and clang. Please install what is missing, for"
  say "example with"
  say "  dnf install gcc-c++ cmake ninja-build cli11-devel qt6-qtbase-devel qt6-qttranslations \\"
  say "    gtest-devel clang"
  say "(Fedora), or with"
  say "  pacman -S gcc cmake ninja cli11 qt6-base qt6-translations gtest clang"
  say "(Arch Linux)."
}

# install_missing: installs the requested packages with the distribution's package manager.
install_missing() {
  [ -n "$missing" ] || return 0
  if ! has_command apt-get; then
    say "$program: missing (names of Debian packages):$missing"
    say_what_to_install
    exit 1
  fi
  as_root=
  if [ "$(id -u)" -ne 0 ]; then
    has_command sudo || die "please install as root: apt-get install$missing"
    as_root=sudo
  fi
  say "Installing$missing (this can take a minute) ..."
  $as_root apt-get -qq update </dev/null >&2 ||
    say "$program: the package lists could not be updated; trying with the existing ones"
  # shellcheck disable=SC2086  # both are lists of words
  if ! log=$($as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -qq \
    -o DPkg::Lock::Timeout=300 install --no-install-recommends $missing </dev/null 2>&1); then
    say "$log"
    die "the installation failed; as root please try: apt-get install$missing"
  fi
  missing=
}

# is_configured FOLDER: true if the build folder was configured for this checkout and not for one
# that has since moved.
is_configured() {
  [ -e "$1/build.ninja" ] &&
    grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$1/CMakeCache.txt" 2>/dev/null
}

# configure PRESET [OPTION...]: configures build/PRESET silently, with output only on failure.
configure() {
  preset=$1
  shift
  # A new folder compiles many sources at a time, which takes less than half the time; in the folder
  # of somebody who builds again and again it stays as that one has it. Clang-tidy needs the commands
  # of single sources; the preset "quick" itself says how many.
  if ! is_configured "$root/build/$preset"; then
    set -- --fresh "$@"
    case $preset in
      debug | quick | web) ;;
      *) set -- "$@" -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=12 ;;
    esac
  fi
  if ! log=$(cd "$root" && cmake --preset "$preset" "$@" </dev/null 2>&1); then
    say "$log"
    has_command apt-get || say_what_to_install
    die "build/$preset could not be configured"
  fi
}

# export_tree FOLDER: what git has of this checkout, changes to its files included.
export_tree() {
  # Without changes there is nothing to stash, and the name is empty.
  changed=$(git -C "$root" stash create)
  [ -z "$changed" ] || say "$program: with changes that are not committed"
  mkdir -p "$1"
  git -C "$root" archive "${changed:-HEAD}" | tar -x -C "$1"
}
