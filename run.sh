#!/usr/bin/env bash
# Builds dist/win64 and starts Kestrum 2 under Wine: on this display, in a prefix that keeps its settings. Without a
# display, or with --headless, shows its main job on a desktop of its own: a favourite, started after the program
# with Auto Set on, gets its affinity and priority. Exit code 1 when it does not.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
tools/setup.sh
mkdir -p build
cmake --preset win64 >build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
cmake --build --preset win64 -j 2 | tail -n 1
# shellcheck source=tools/wine-bed.sh
source tools/wine-bed.sh

if [[ -n ${DISPLAY:-} && ${1:-} != --headless ]]; then
    prefix=$bed_root/user
    bed_ensure_template
    [[ -d $prefix ]] || cp -a "$bed_template" "$prefix"
    bed_use_prefix "$prefix"
    exec wine dist/win64/Kestrum2.exe
fi

bed_start run
helpers=build/win64/tests/desktop
folder=$WINEPREFIX/drive_c/Kestrum2
mkdir "$folder"
cp -r dist/win64/. "$helpers/Target.exe" "$folder"
printf '%s\r\n' '[Kestrum 2 - Morvell Software 2010]' $'Target.exe\t0\tHigh\tC:\\Kestrum2\\Target.exe\t' \
    >"$folder/My Favs 1"
wine reg add 'HKCU\Software\Morvell\Kestrum2' /v AutoSet /d 1 /f >/dev/null 2>&1
table() { wine "$helpers/proclist.exe" 2>/dev/null | tr -d '\r'; }

# Programs that leave the list something to show; they end with the desktop.
for name in Editor Player Compiler; do
    cp "$helpers/Target.exe" "$folder/$name.exe"
    wine "C:\\Kestrum2\\$name.exe" 60 >/dev/null 2>&1 &
done
wine 'C:\Kestrum2\Kestrum2.exe' >/dev/null 2>&1 &
bed_wait_for 30 xdotool search --name '^Kestrum 2$' >/dev/null 2>&1 || { echo "the window did not come"; exit 1; }

echo "Before:"
table
wine "$helpers/proclist.exe" --wait Target.exe --affinity 0x1 --class 128 --timeout 10 >"$bed_run/waited" 2>/dev/null &
waiter=$!
wine 'C:\Kestrum2\Target.exe' 60 >/dev/null 2>&1 &
set=0
wait $waiter || set=1
echo "After:"
table
tr -d '\r' <"$bed_run/waited"
import -window root build/run.png
echo "Screenshot: build/run.png"
exit $set
