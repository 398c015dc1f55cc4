#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine, with its own Wine prefix.
set -euo pipefail

# File names are UTF-8; numbers and messages do not depend on a country.
export LC_ALL=C.UTF-8
export WINEDEBUG=${WINEDEBUG:--all}
export WINEPREFIX=${WINEPREFIX:-$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../../build/wine}
# Wine would offer to download Mono and Gecko, which are not needed here; its debugger would keep a
# crashed program from ending.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe=d${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"

find_wine() {
  local candidate
  for candidate in /usr/lib/wine/wine64 wine64 wine; do
    if command -v "$candidate"; then return; fi
  done
  echo "wine.sh: Wine is missing" >&2
  exit 127
}

# prepared COMMAND...: runs a command that prepares the prefix; reports a failure.
prepared() {
  "$@" >/dev/null 2>&1 9>&- && return
  echo "wine.sh: cannot prepare $WINEPREFIX, this failed: $*" >&2
  exit 1
}

# Creates a Wine prefix with fonts for the windows' texts; only one process at a time.
prepare_folder() {
  local font fonts='HKCU\Software\Wine\Fonts\Replacements'
  mkdir -p "$WINEPREFIX"
  exec 9>"$WINEPREFIX.lock"
  flock 9
  if ! [ -e "$ready" ]; then
    prepared "$wine" wineboot --init
    for font in /usr/share/fonts/truetype/dejavu/*.ttf; do
      if [ -e "$font" ]; then cp "$font" "$WINEPREFIX/drive_c/windows/Fonts/"; fi
    done
    for font in "Segoe UI" "MS Shell Dlg" "MS Shell Dlg 2" "MS Sans Serif" Tahoma; do
      prepared "$wine" reg add "$fonts" /v "$font" /d "DejaVu Sans" /f
    done
    prepared "$wine" reg add "$fonts" /v "Courier New" /d "DejaVu Sans Mono" /f
    touch "$ready"
  fi
  exec 9>&-
}

wine=$(find_wine)
# A changed version of this script prepares the prefix again.
ready=$WINEPREFIX/ready-$(cksum <"${BASH_SOURCE[0]}" | cut -d ' ' -f 1)
[ -e "$ready" ] || prepare_folder
# Wine's services keep running for a while; they must not hold the streams of a caller that waits.
"$wine" cmd /c exit </dev/null >/dev/null 2>&1
exec "$wine" "$@"
