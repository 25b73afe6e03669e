#!/usr/bin/env bash
# The installer in a fresh prefix of Wine: it installs silently, the installed program starts, an upgrade and the uninstaller
# end it first, and what is the user's is kept, or removed when that was asked for. Needs build/packages.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/wine-bed.sh
source tools/wine-bed.sh
setups=(build/packages/*-setup.exe)
setup=$PWD/${setups[0]}
[[ -f $setup ]] || { echo "not packed: $setup"; exit 1; }
dist=$PWD/dist/win64
# The installer is a 32-bit program, and what it installs here are 64-bit ones.
if ! bed_ensure_i386; then
    echo "skipped: no 32-bit Wine could be downloaded (build/wine/i386-apt/log tells why)"
    exit 77
fi
bed_use_i386
bed_start install
exec 3>&1

user=$(echo "$WINEPREFIX"/drive_c/users/*/AppData)
user=${user%/AppData}
folder=$user/AppData/Local/Programs/Kestrum2
link=$user/'AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Kestrum 2.lnk'
windows_folder="C:\\users\\${user##*/}\\AppData\\Local\\Programs\\Kestrum2"
run='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'
entry='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrum2'
settings='HKCU\Software\Morvell\Kestrum2'
failures=0

# check TEXT COMMAND...: COMMAND has to succeed.
check() {
    local text=$1
    shift
    "$@" && return
    echo "FAILED: $text" >&3
    failures=$((failures + 1))
}
no() { ! "$@"; }
in_registry() { "$bed_loader" reg query "$1" ${2:+/v "$2"} >/dev/null 2>&1; }
set_value() { "$bed_loader" reg add "$1" /v "$2" /d "$3" /f >/dev/null 2>&1; }

# Whether a program of this prefix whose command line holds $1 runs.
runs() {
    local process
    for process in $(grep -lsaF -- "$1" /proc/[0-9]*/cmdline); do
        grep -qsazxF "WINEPREFIX=$WINEPREFIX" "${process%cmdline}environ" && return 0
    done
    return 1
}

# The installed programs, started and at work.
start() {
    "$bed_loader" "$windows_folder\\Kestrum2.exe" >/dev/null 2>&1 &
    check "the window comes" bed_wait_for 10 xdotool search --name '^Kestrum 2$' >/dev/null 2>&1
    "$bed_loader" "$windows_folder\\Kestrum_Jr.exe" '/My Favs 1' >/dev/null 2>&1 &
    check "Kestrum Jr. runs" bed_wait_for 10 runs Kestrum_Jr.exe
}
ended() { no runs Kestrum2.exe && no runs Kestrum_Jr.exe; }

install() {
    check "setup succeeds" timeout 15 "$bed_loader" "$setup" /S >/dev/null 2>&1
    check "the programs have ended" ended
    for file in Kestrum2.exe Kestrum_Jr.exe Help.htm; do
        check "$file is installed" cmp "$dist/$file" "$folder/$file"
    done
}

# The uninstaller goes on as a copy of itself in the folder for temporary files.
uninstall() {
    "$bed_loader" "$windows_folder\\Uninstall.exe" /S "$@" >/dev/null 2>&1
    check "the uninstaller ends" bed_wait_for 15 no runs '~nsu'
    check "the programs have ended" ended
    for file in "$folder"/{Kestrum2.exe,Kestrum_Jr.exe,Help.htm,Uninstall.exe} "$link"; do
        check "${file##*/} is removed" test ! -e "$file"
    done
    check "the entry among the installed programs is removed" no in_registry "$entry"
    check "the start entry is removed" no in_registry "$run" Kestrum2
    check "the start entry of another copy stays" in_registry "$run" Kestrum_Jr
}

profile=$folder/'My Favs 1'
filter=$folder/FileFilter
picture=$folder/Cache/notepad.exe.bmp
filter_picture=$folder/Cache/Filters/player.exe.bmp
strangers=("$folder/My Favs 1.txt" "$folder/My Favs 6" "$folder/Cache/notes.bmp2" "$folder/Cache/holiday.bmp")
mine() { cksum "$profile" "$filter" "$@" 2>&1; }

install
check "the start menu has it" test -f "$link"
check "it is among the installed programs" in_registry "$entry" UninstallString
set_value "$run" Kestrum2 "$windows_folder\\Kestrum2.exe"
set_value "$run" Kestrum_Jr 'D:\Tools\Kestrum 2\Kestrum_Jr.exe'
set_value "$settings" AutoSet False
mkdir -p "$folder/Cache/Filters"
printf '%s\r\n' '[Kestrum 2 - Morvell Software 2010]' $'notepad.exe\t0\tHigh\tC:\\windows\\notepad.exe\t' >"$profile"
printf '%s\r\n' player.exe >"$filter"
# An icon as the programs keep it: the headers of a bitmap of 16 x 16 pixels, 32 bits each.
{
    printf 'BM\x36\x04\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x10\0\0\0\x10\0\0\0\x01\0\x20\0'
    head -c 1048 /dev/zero
} >"$picture"
cp "$picture" "$filter_picture"
for file in "${strangers[@]}"; do echo mine >"$file"; done
before=$(mine)
all_before=$(mine "$picture" "$filter_picture")

start
echo "old" >"$folder/Help.htm"
install  # over the running programs
check "an upgrade keeps what is the user's, and pictures" \
    test "$(mine "$picture" "$filter_picture")" = "$all_before"

start
uninstall
check "what is the user's is kept" test "$(mine)" = "$before"
check "the settings are kept" in_registry "$settings" AutoSet
for file in "$picture" "$filter_picture" "$folder/Cache/Filters"; do
    check "${file##*/} is removed: it can be made anew" test ! -e "$file"
done

install
set_value "$run" Kestrum2 "$windows_folder\\Kestrum2.exe"
uninstall /PURGE
for file in "$profile" "$filter"; do
    check "${file##*/} is removed when asked for" test ! -e "$file"
done
check "the settings are removed when asked for" no in_registry "$settings"
for file in "${strangers[@]}"; do
    check "${file##*/} stays: nobody knows what it is" test -f "$file"
done
echo "install: $failures failures after $SECONDS s"
exit $((failures > 0))
