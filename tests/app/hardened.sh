#!/bin/sh
# Fails, and says what is missing, unless a program was built as cmake/Hardening.cmake asks. Looks at
# the program itself, as flags may be given and come to nothing.
#
# Usage: hardened.sh PROGRAM PROCESSOR
set -eu
program=$1
processor=$2
lacks=

lack() { lacks="$lacks$1
"; }

# Whether a tool's output about the program has a line of this form.
shows() {
  pattern=$1
  shift
  LC_ALL=C "$@" "$program" > "$output"
  grep -qE -- "$pattern" "$output"
}

# Whether a function of the program's own, not one of a library within it, uses a symbol of this form.
uses() {
  LC_ALL=C objdump --disassemble --no-show-raw-insn "$program" > "$output"
  awk -v symbol="<$1[@>]" '
    /^[0-9a-f]+ <.*>:$/ { own = /quillon/ }
    own && $0 ~ symbol { found = 1; exit }
    END { exit !found }' "$output"
}

output=$(mktemp)
trap 'rm -f "$output"' EXIT

shows '\bPIE\b' readelf --dynamic --wide || lack "an address that changes (-pie)"
shows '\bGNU_RELRO\b' readelf --program-headers --wide || lack "a part that becomes read-only (-z relro)"
shows '\bNOW\b' readelf --dynamic --wide || lack "functions looked up at the start (-z now)"
shows '\bGNU_STACK\b.* RW ' readelf --program-headers --wide || lack "a stack without code"
uses __stack_chk_fail || lack "guarded stacks (-fstack-protector-strong)"
uses '__[a-z0-9_]+_chk' || lack "checked buffers (-D_FORTIFY_SOURCE)"
if [ "$processor" = x86_64 ]; then
  # The first instruction of main is where the C library jumps to.
  LC_ALL=C objdump --disassemble=main --no-show-raw-insn "$program" > "$output"
  grep -A 1 '<main>:$' "$output" | grep -q '\bendbr64\b' || lack "marked targets of jumps (-fcf-protection)"
  # Touches each page of a large frame.
  shows '\borq +\$0x0,(0x[0-9a-f]+)?\(%rsp\)' objdump --disassemble --no-show-raw-insn ||
    lack "stacks that grow page by page (-fstack-clash-protection)"
fi
[ -n "$lacks" ] || exit 0
printf '%s lacks:\n%s' "${program##*/}" "$lacks" >&2
exit 1
