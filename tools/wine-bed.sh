#!/usr/bin/env bash
# Test bed for programs under Wine, to be sourced: a template prefix made once, a clone of it and a display
# of its own for each run. Several runs may go on side by side. After `bed_start`, leave by any way: the
# exit trap ends what was started, and only that. Programs are run with "$bed_loader".
# shellcheck disable=SC2034

bed_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/wine
bed_template=$bed_root/template
bed_i386=$bed_root/i386
bed_size=1280x800
bed_run='' bed_xvfb=''
bed_loader=wine bed_server=wineserver bed_maker=wine

# Settings of every prefix: one virtual desktop for all programs, no crash dialog (a crash exits with 5),
# icons read from .exe files, and .htm opened by a stub that tests put in place.
bed_registry() {
    cat <<EOF
REGEDIT4

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]
"Desktop"="Default"

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]
"Default"="$bed_size"

[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CLASSES_ROOT\\.exe]
@="exefile"

[HKEY_CLASSES_ROOT\\.htm]
@="TestHtm"

[HKEY_CLASSES_ROOT\\TestHtm\\shell\\open\\command]
@="\\"C:\\\\stub.exe\\" \\"%1\\""
EOF
}

# What wine has to be told, for the prefix $1. HOME lies beside it: the prefix links to the user's documents.
bed_use_prefix() {
    mkdir -p "$bed_root/home"
    export WINEPREFIX=$1 HOME=$bed_root/home WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
}

# Makes a prefix in $1. The fonts have to be copied (this Wine does not find them), and so has the library
# that the 32-bit half needs but does not install.
bed_make_prefix() (
    bed_use_prefix "$1"
    unset DISPLAY
    "$bed_maker" wineboot -i >/dev/null 2>&1
    "$bed_server" -w
    cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$WINEPREFIX/drive_c/windows/Fonts/"
    if [[ $bed_maker != wine ]]; then
        cp /usr/i686-w64-mingw32/lib/zlib1.dll "$WINEPREFIX/drive_c/windows/syswow64/"
    fi
    bed_registry >"$WINEPREFIX/bed.reg"
    "$bed_maker" regedit /S "$WINEPREFIX/bed.reg" >/dev/null 2>&1
    rm "$WINEPREFIX/bed.reg"
    "$bed_server" -w
)

# Makes the template unless it is there; a run that comes meanwhile waits.
bed_ensure_template() {
    mkdir -p "$bed_root"
    (
        flock 9
        local stamp
        stamp="$(dpkg-query -W -f='${Version}' wine64) $(bed_registry | cksum)"
        [[ -f $bed_template.stamp && $(<"$bed_template.stamp") == "$stamp" ]] && exit 0
        rm -rf "$bed_template" "$bed_template.stamp"
        bed_make_prefix "$bed_template" 9>&-
        echo "$stamp" >"$bed_template.stamp"
    ) 9>"$bed_template.lock"
}

# The real 32-bit Wine, unpacked beside the installed one and never installed (installing it may remove the
# 64-bit one). The 64-bit Wine runs 32-bit programs, too, but they cannot draw. False when it is not to be had.
bed_ensure_i386() {
    mkdir -p "$bed_root"
    (
        flock 9
        [[ -f $bed_i386/complete ]] && exit 0
        rm -rf "$bed_i386"
        mkdir -p "$bed_i386/root" "$bed_root/i386-apt"/{state/lists/partial,cache/archives/partial,debs}
        bed_fetch_i386 && bed_unpack_i386 && touch "$bed_i386/complete"
    ) 9>"$bed_root/i386.lock"
}

# Downloads with an apt of its own: the machine's architectures, lists and packages stay as they are.
# The C library comes from libc6-i386, which matches the machine's loader.
bed_fetch_i386() {
    local apt=$bed_root/i386-apt packages
    packages=(libwine wine32 libgcc-s1 libfreetype6 libpng16-16 zlib1g libbrotli1 libfontconfig1 libexpat1 libx11-6
        libxcb1 libxau6 libxdmcp6 libbsd0 libmd0 libxext6 libxrender1 libxi6 libxrandr2 libxcursor1 libxfixes3
        libxcomposite1 libxinerama1 libxxf86vm1 libunwind8 liblzma5)
    touch "$apt/status"
    local options=(-q -o APT::Architecture=i386 -o APT::Architectures::=i386 -o Dir::State="$apt/state"
        -o Dir::State::status="$apt/status" -o Dir::Cache="$apt/cache" -o Acquire::Languages=none
        -o APT::Sandbox::User=)
    # One list of several may be out of step for a moment; what is missing shows at the download.
    apt-get "${options[@]}" update >"$apt/log" 2>&1 || true
    (cd "$apt/debs" && apt-get "${options[@]}" download "${packages[@]}") >>"$apt/log" 2>&1
}

bed_unpack_i386() {
    local root=$bed_i386/root deb
    for deb in "$bed_root"/i386-apt/debs/*.deb; do
        dpkg -x "$deb" "$root" || return 1
    done
    # The 64-bit half is the installed one; its loader finds both halves relative to where it lies.
    local both=$root/usr/lib/x86_64-linux-gnu/wine
    mkdir -p "$both" &&
        ln -s /usr/lib/x86_64-linux-gnu/wine/x86_64-{unix,windows} "$both" &&
        ln -s ../../i386-linux-gnu/wine/i386-windows "$both" &&
        cp /usr/lib/wine/wine64 /usr/lib/wine/wineserver64 "$root/usr/lib/wine/" &&
        cp /usr/i686-w64-mingw32/lib/zlib1.dll "$root/usr/lib/i386-linux-gnu/wine/i386-windows/"
}

# Switches everything below to the 32-bit Wine. Its template is of its own: a prefix that knows both kinds of
# programs can only be made by the 64-bit loader of that tree.
bed_use_i386() {
    local root=$bed_i386/root
    export LD_LIBRARY_PATH=$root/lib/i386-linux-gnu:$root/usr/lib/i386-linux-gnu
    export WINELOADER=$root/usr/lib/wine/wine WINESERVER=$root/usr/lib/wine/wineserver64
    bed_loader=$WINELOADER bed_server=$WINESERVER bed_maker=$root/usr/lib/wine/wine64
    bed_template=$bed_root/template-i386
}

# Clones the template into $1. The registry files are copied, not linked: the wineserver writes them in place.
bed_clone() {
    cp -al "$bed_template" "$1"
    rm "$1"/*.reg
    cp -p "$bed_template"/*.reg "$1"
}

# A prefix and a display of its own for this script, named $1; exports what wine needs.
bed_start() {
    bed_ensure_template
    mkdir -p "$bed_root/run"
    bed_run=$(mktemp -d "$bed_root/run/$1.XXXXXX")
    trap bed_stop EXIT
    trap 'exit 129' HUP
    trap 'exit 130' INT
    trap 'exit 143' TERM
    bed_clone "$bed_run/prefix"
    # -displayfd takes a free display number and writes it once clients can connect.
    Xvfb -displayfd 8 -screen 0 ${bed_size}x24 -nolisten tcp 8>"$bed_run/display" >"$bed_run/xvfb.log" 2>&1 &
    bed_xvfb=$!
    bed_wait_for 10 test -s "$bed_run/display" || { echo "bed: no display" >&2; return 1; }
    DISPLAY=:$(<"$bed_run/display")
    export DISPLAY
    bed_use_prefix "$bed_run/prefix"
}

# Polls a command until it succeeds, at most $1 seconds.
bed_wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.05
    done
}

# Ends the prefix's processes and the display, removes the clone.
bed_stop() {
    local code=$?
    trap - EXIT
    trap '' HUP INT TERM
    if [[ -n $bed_run ]]; then
        "$bed_server" -k 2>/dev/null || true
        "$bed_server" -w 2>/dev/null || true
        if [[ -n $bed_xvfb ]]; then
            kill "$bed_xvfb" 2>/dev/null || true
            wait "$bed_xvfb" 2>/dev/null || true
        fi
        rm -rf "$bed_run"
    fi
    exit "$code"
}
