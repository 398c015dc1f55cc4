#!/usr/bin/env bash
# Makes a container image of quillon-convert with buildah or podman, and tries it with an example:
# packaging/container/build.sh [NAME]
#
# Then, with podman, for example:
#   podman run --rm --network none -i quillon-convert - < plate.dxf > plate.scr
#   podman run --rm --network none --userns keep-id --user "$(id -u)" -v "$PWD:/work" \
#     quillon-convert plate.dxf
set -euo pipefail

program=$(basename "$0")
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.." && pwd)
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"
name=${1:-quillon-convert}
example=$root/examples/sensor-board.dxf

tool=
for candidate in podman buildah; do
  if [ -z "$tool" ] && has_command "$candidate"; then tool=$candidate; fi
done
[ -n "$tool" ] || die "please install buildah or podman"

build=$root/build/static
cmake -S "$root" --preset run -B "$build" -DCMAKE_EXE_LINKER_FLAGS=-static-pie \
  -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=12 >&2
cmake --build "$build" --target quillon-convert >&2
if readelf --dynamic --wide "$build/src/quillon-convert" | grep -q NEEDED; then
  die "the program needs libraries"
fi

work=$(mktemp -d)
container=
# shellcheck disable=SC2317  # called at the end
clean_up() {
  if [ -n "$container" ]; then buildah rm "$container" >/dev/null; fi
  rm -rf "$work"
}
trap clean_up EXIT
strip -o "$work/quillon-convert" "$build/src/quillon-convert"
cp "$root/packaging/container/Containerfile" "$work"
"$tool" build --tag "$name" "$work" >&2

# The script from inside is that of the program outside. Buildah alone may have no runtime, and needs
# none for this.
if [ "$tool" = podman ]; then
  podman run --rm --network none -i "$name" --unit mm - <"$example" >"$work/inside.scr"
else
  container=$(buildah from --pull-never "$name")
  buildah run --isolation chroot "$container" -- /quillon-convert --unit mm - <"$example" \
    >"$work/inside.scr"
fi
"$build/src/quillon-convert" --unit mm - <"$example" >"$work/outside.scr"
cmp "$work/inside.scr" "$work/outside.scr" || die "the image writes another script"
grep -q '^Window Fit;' "$work/inside.scr" || die "the script is incomplete"
say "$program: the image $name is fine"
