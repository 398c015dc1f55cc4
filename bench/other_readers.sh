#!/usr/bin/env bash
# Compares converting a drawing with what other programs of the distribution take to read it:
# bench/other_readers.sh [MEGABYTES]. Installs them (Debian), makes the drawings, and prints a table.
set -euo pipefail

program=$(basename "$0")
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
# shellcheck source=tools/setup.sh
. "$root/tools/setup.sh"
megabytes=${1:-20}

need_command g++ c++
need_command cmake cmake
need_command ninja-build ninja
need_header libcli11-dev CLI/CLI.hpp
need_header libbenchmark-dev benchmark/benchmark.h
need_command python3 python3
need_command dime dxf2vrml
need_command gdal-bin ogrinfo
need_file python3-ezdxf /usr/lib/python3/dist-packages/ezdxf
need_file python3-numpy /usr/lib/python3/dist-packages/numpy
install_missing

configure bench
cmake --build "$root/build/bench" --target quillon-convert end_to_end >&2
drawings=$(mktemp -d)
trap 'rm -rf "$drawings"' EXIT
"$root/build/bench/bench/end_to_end" --size "$megabytes" --rounds 1 --folder "$drawings" >/dev/null
/usr/bin/python3 "$root/bench/other_readers.py" "$root/build/bench/src/quillon-convert" "$drawings"/*.dxf
