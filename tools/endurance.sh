#!/usr/bin/env bash
# Long runs of the real program under Wine, with figures and a verdict (exit code 0: passed):
#   tools/endurance.sh soak [MINUTES]             thousands of processes start and end; 20 minutes when not given
#   tools/endurance.sh kill [TIMES [SEED [STEP]]] killed at random moments of random edits; 200 times when not given.
#                                                 A seed and a step repeat that of an earlier run, once by itself
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

what=${1:-}
case $what in
    soak)
        minutes=${2:-20}
        arguments=("$minutes")
        bound=$((minutes * 90 + 300))
        ;;
    kill)
        times=${2:-200}
        arguments=("$times" "${@:3}")
        bound=$((times * 60 + 300))
        ;;
    *)
        sed -n '2,5s/^# //p' "$0"
        exit 2
        ;;
esac
cmake --preset win64 >/dev/null
cmake --build --preset win64 --target Kestrum2 endurance -j 2 | tail -n 1
BED_TIMEOUT=$bound exec tools/under-wine.sh build/win64/tests/endurance/endurance.exe "Z:$PWD/dist/win64" "$what" "${arguments[@]}"
