#!/usr/bin/env bash
# What a program costs under Wine while so many processes run that do nothing: CPU milliseconds a second of the
# program, of the wineserver and of the X server (what these two take without it subtracted), and private memory.
#   tools/cpu-cost.sh window|tray|jr|taskmgr|empty [PROCESSES [SECONDS]]     100 and 30 when not given
# window, tray: Kestrum 2 shown and hidden. jr: Kestrum Jr. taskmgr: Wine's Task Manager, made to refresh as often as
# Kestrum 2 does. empty: a program with a small window that does nothing.
# Everything runs on one processor: waking up another one costs more than what is measured.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
case ${1:-} in
    window | tray | jr | taskmgr | empty) ;;
    *)
        sed -n '2,7s/^# //p' "$0"
        exit 2
        ;;
esac
cmake --preset win64 >/dev/null
cmake --build --preset win64 --target Kestrum2 Kestrum_Jr Target Crowd Pacer -j 2 >/dev/null
taskset -cp 1 $$ >/dev/null
# shellcheck source=tools/wine-bed.sh
source tools/wine-bed.sh
bed_start cost
folder=$WINEPREFIX/drive_c/Kestrum2
mkdir "$folder"
cp dist/win64/*.exe build/win64/bench/windows/{Crowd,Pacer}.exe build/win64/tests/desktop/Target.exe "$folder"
python3 tools/cpu-cost.py "$bed_xvfb" "$@"
