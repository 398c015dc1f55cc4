#!/bin/sh
# Runs the example from docs/security.md with folders of its own: the program must work inside, and
# must see nothing but the two folders. Skipped (exit code 77) where bubblewrap cannot run.
#
# Usage: sandbox_example.sh QUILLON-CONVERT SECURITY-PAGE DRAWING
set -eu
converter=$1
page=$2
drawing=$3

leave_out() {
  echo "left out: $1"
  exit 77
}
fail() {
  echo "failed: $1" >&2
  exit 1
}

command -v bwrap > /dev/null || leave_out "bubblewrap is not installed"
bwrap --ro-bind / / --unshare-all true 2> /dev/null || leave_out "bubblewrap may not run here"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/drawings" "$folder/scripts"
cp "$drawing" "$folder/drawings/part.dxf"

# The example, using this test's program and folders.
sed -n '/^```sh$/,/^```$/p' "$page" | sed '/^```/d' > "$folder/example"
grep -q '^bwrap ' "$folder/example" || fail "the page has no example"
run_example() {
  sed -e "s|^program=.*|program='$1'|" -e "s|^drawings=.*|drawings='$folder/drawings'|" \
    -e "s|^scripts=.*|scripts='$folder/scripts'|" "$folder/example" > "$folder/run"
  sh -eu "$folder/run"
}

run_example "$converter" || fail "the example does not convert"
tail -c 14 "$folder/scripts/part.scr" | grep -q 'Window Fit;' || fail "there is no whole script"

# Replaces the program to report what is visible and writable inside.
cat > "$folder/look" <<'LOOK'
#!/usr/bin/sh
cd /
echo * > /out/seen
for place in /in /usr; do
  if (echo x > "$place/written") 2> /dev/null; then echo "$place" >> /out/writable; fi
done
env | grep -v -e '^PWD=' -e '^_=' -e '^OLDPWD=' -e '^SHLVL=' > /out/environment
exit 0
LOOK
chmod +x "$folder/look"
SECRET=x run_example "$folder/look" || fail "the sandbox does not start"
seen=$(cat "$folder/scripts/seen")
[ "$seen" = "dev in lib lib64 out quillon-convert usr" ] || fail "there is more to see: $seen"
[ ! -e "$folder/scripts/writable" ] || fail "can be written: $(cat "$folder/scripts/writable")"
[ ! -s "$folder/scripts/environment" ] || fail "has: $(cat "$folder/scripts/environment")"
echo "the example holds"
