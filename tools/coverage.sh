#!/usr/bin/env bash
# Builds the native tests with coverage (build/coverage), runs the unit and contract tests, and prints how much of the
# portable code they reach, per folder. tools/coverage.sh --files prints every file with the lines that are not reached.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=build/coverage
mkdir -p "$build"
log=$build/log
quietly() {
    "$@" >"$log" 2>&1 || { tail -n 40 "$log"; exit 1; }
}

# Without optimisation, so that lines stay apart.
quietly cmake --preset native -B "$build" -DKESTRUM_SANITIZE=OFF -DKESTRUM_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-O0 -g1 --coverage" -DCMAKE_EXE_LINKER_FLAGS=--coverage
quietly cmake --build "$build" -j 2
find "$build" -name '*.gcda' -delete
quietly ctest --test-dir "$build" -j 2 -R '^(unit_.*|contract)$' --output-on-failure
exec tools/coverage.py "$build" "$@"
