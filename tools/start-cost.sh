#!/usr/bin/env bash
# How long the program takes under Wine from its start to the first list on the screen (bench/windows/StartCost.cpp):
#   tools/start-cost.sh [TIMES]     20 times when not given
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset win64 >/dev/null
cmake --build --preset win64 --target Kestrum2 start_cost -j 2 | tail -n 1
exec tools/under-wine.sh build/win64/bench/windows/start_cost.exe "Z:$PWD/dist/win64" "$@"
