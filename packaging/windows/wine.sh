#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine, in a Wine folder of its own.
set -euo pipefail

# Names of files are UTF-8, numbers and messages those of no country.
export LC_ALL=C.UTF-8
export WINEDEBUG=${WINEDEBUG:--all}
export WINEPREFIX=${WINEPREFIX:-$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../../build/wine}
# Wine would offer to download what the first two need, and nothing here needs them; its debugger
# would keep a program that crashes from ending.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe=d${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"

find_wine() {
  local candidate
  for candidate in /usr/lib/wine/wine64 wine64 wine; do
    if command -v "$candidate"; then return; fi
  done
  echo "wine.sh: Wine is missing" >&2
  exit 127
}

# prepared COMMAND...: runs a command that prepares the folder; one that fails says so.
prepared() {
  "$@" >/dev/null 2>&1 9>&- && return
  echo "wine.sh: $WINEPREFIX could not be prepared: $*" >&2
  exit 1
}

# A new Wine folder, with fonts for the windows' texts; made by one process at a time.
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
# Another state of this script prepares the folder again.
ready=$WINEPREFIX/ready-$(cksum <"${BASH_SOURCE[0]}" | cut -d ' ' -f 1)
[ -e "$ready" ] || prepare_folder
# Wine's services live on for a while; they must not hold the streams of whoever waits for their end.
"$wine" cmd /c exit </dev/null >/dev/null 2>&1
exec "$wine" "$@"
