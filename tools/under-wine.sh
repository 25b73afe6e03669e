#!/usr/bin/env bash
# Runs a Windows program in a fresh prefix on a display of its own and gives its exit code:
#   tools/under-wine.sh [--i386] PROGRAM.exe [ARGUMENT...]
# Exit code 77 (a skipped test) when the program is not built, or for --i386 when there is no 32-bit Wine.
# KESTRUM_ALL=1 makes a missing program a failure. BED_TIMEOUT: seconds, 240 when not given.
set -euo pipefail
# shellcheck source=tools/wine-bed.sh
source "$(dirname "${BASH_SOURCE[0]}")/wine-bed.sh"

i386=0
if [[ ${1:-} == --i386 ]]; then
    i386=1
    shift
fi
program=$1
shift
if [[ ! -f $program ]]; then
    echo "not built: $program"
    [[ ${KESTRUM_ALL:-0} == 1 ]] && exit 1
    exit 77
fi
if ((i386)); then
    if ! bed_ensure_i386; then
        echo "skipped: no 32-bit Wine could be downloaded (build/wine/i386-apt/log tells why)"
        exit 77
    fi
    bed_use_i386
fi
bed_start "$(basename "$program" .exe)"
# In the background with `wait`, so that a signal ends it at once.
timeout "${BED_TIMEOUT:-240}" "$bed_loader" "$program" "$@" </dev/null &
wait $!
