#!/usr/bin/env bash
# What a tick costs under Wine against the bare system calls it cannot do without (bench/windows/TickCost.cpp):
#   tools/tick-cost.sh [PROCESSES...]     20, 100 and 250 when not given
# Everything runs on one processor: waking up another one costs more than what is measured.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset win64 >/dev/null
cmake --build --preset win64 --target tick_cost -j 2 | tail -n 1
BED_TIMEOUT=900 exec taskset -c 1 tools/under-wine.sh build/win64/bench/windows/tick_cost.exe "$@"
