#!/usr/bin/env bash
# Builds the programs, checks them and packs them into build/packages:
#   Kestrum2-VERSION-setup.exe                    the installer, with the programs for 64 and 32 bits
#   Kestrum2-VERSION-win64.zip and -win32.zip     one folder each, to be unpacked anywhere and run
# The same commit gives the same bytes. With --no-build what is in dist/ is packed. Profiles and pictures that a
# trial run left in dist/ are not.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
if [[ ${1:-} != --no-build ]]; then
    tools/setup.sh
    mkdir -p build
    for preset in win64 win32; do
        cmake --preset "$preset" >build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
        cmake --build --preset "$preset" --target Kestrum2 Kestrum_Jr -j 2 | tail -n 1
    done
fi
KESTRUM_ALL=1 tools/check-programs.py

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
packages=$PWD/build/packages
mkdir -p "$packages"
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
# The time that everything in the packages bears: that of the commit, or any fixed one.
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || echo 1262304000)} TZ=UTC

for kind in win64 win32; do
    folder=$stage/$kind/Kestrum2
    mkdir -p "$folder"
    cp dist/$kind/{Kestrum2.exe,Kestrum_Jr.exe,Help.htm} "$folder"
    chmod 755 "$folder" "$folder"/*.exe
    chmod 644 "$folder"/*.htm
    touch -d "@$SOURCE_DATE_EPOCH" "$folder"/* "$folder"
    package=$packages/Kestrum2-$version-$kind.zip
    rm -f "$package"
    (cd "$stage/$kind" && zip -q9X "$package" Kestrum2/{Kestrum2.exe,Kestrum_Jr.exe,Help.htm})
    echo "$package"
done

package=$packages/Kestrum2-$version-setup.exe
makensis -V2 -WX -DDIST="$PWD/dist" -DICON="$PWD/assets/kestrum2.ico" -DPICTURE="$PWD/assets/setup.bmp" \
    -DVERSION="$version" -DOUTPUT="$package" packaging/kestrum2.nsi
echo "$package"
