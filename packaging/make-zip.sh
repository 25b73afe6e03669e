#!/usr/bin/env bash
# Packs what ./test.sh or ./run.sh built: build/Kestrum2-VERSION-win64.zip and -win32.zip, each with one folder
# that is unpacked anywhere and run. Profiles and caches of a trial run in dist/ are left out.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

packed=0
for kind in win64 win32; do
    [[ -f dist/$kind/Kestrum2.exe ]] || continue
    folder=$stage/$kind/Kestrum2
    mkdir -p "$folder"
    cp dist/"$kind"/*.exe dist/"$kind"/*.htm "$folder"
    zip=$PWD/build/Kestrum2-$version-$kind.zip
    rm -f "$zip"
    (cd "$stage/$kind" && zip -qr9X "$zip" Kestrum2)
    echo "$zip"
    packed=1
done
((packed)) || { echo "nothing in dist/: build the presets win64 and win32 first" >&2; exit 1; }
