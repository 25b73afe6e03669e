#!/usr/bin/env bash
# Builds and tests everything: natively with sanitizers, both Windows builds under Wine, the fuzz targets, the
# sources. Ends with CTest's summary. Arguments go to CTest, e.g. ./test.sh -R desktop. With --long before them each
# fuzz target gets a minute, and tests that take minutes run as well (KESTRUM_LONG).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

if [[ ${1:-} == --long ]]; then
    shift
    export KESTRUM_LONG=1 FUZZ_SECONDS=${FUZZ_SECONDS:-60}
fi

step() {
    local start=$SECONDS name=$1
    shift
    "$@" || { echo "test: $name failed"; exit 1; }
    echo "test: $name took $((SECONDS - start)) s"
}

# build PRESET TARGET
build() {
    cmake --preset "$1" >"build/configure-$1.log" 2>&1 || { cat "build/configure-$1.log"; return 1; }
    cmake --build --preset "$1" --target "$2" -j 2 >"build/build-$1.log" 2>&1 || { tail -n 40 "build/build-$1.log"; return 1; }
}

# Both templates, one after the other: mostly waiting and copying, so it goes on beside the compilers.
prepare_wine() {
    # shellcheck source=tools/wine-bed.sh
    source tools/wine-bed.sh
    bed_ensure_template
    if bed_ensure_i386; then
        bed_use_i386
        bed_ensure_template
    else
        echo "test: no 32-bit Wine to be had; the tests of the 32-bit program are skipped ($bed_root/i386-apt/log)"
    fi
}

step "setting up" tools/setup.sh
mkdir -p build
prepare_wine &
wine=$!
trap 'kill $wine 2>/dev/null || true' EXIT
for preset in native win64 win32; do
    step "building $preset" build "$preset" all
done
if command -v clang++ >/dev/null; then
    step "building the fuzz targets" build fuzz fuzz/all
fi
step "waiting for Wine" wait "$wine"
trap - EXIT
echo "test: all built after $SECONDS s"
KESTRUM_ALL=1 exec ctest --test-dir build/native -j 2 --output-on-failure "$@"
