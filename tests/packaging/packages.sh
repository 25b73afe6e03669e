#!/usr/bin/env bash
# Packs what is in dist twice and compares, byte by byte; what was tried out in dist stays there. Exit code 77 when
# the programs or the packer are missing (1 with KESTRUM_ALL=1).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
for need in dist/win64/Kestrum{2,_Jr}.exe dist/win32/Kestrum{2,_Jr}.exe /usr/bin/{makensis,zip}; do
    [[ -f $need ]] && continue
    echo "missing: $need"
    [[ ${KESTRUM_ALL:-0} == 1 ]] && exit 1
    exit 77
done
first=$(mktemp -d)
trap 'rm -rf "$first"' EXIT
packaging/make.sh --no-build
cp build/packages/* "$first"
touch dist/win64/*.htm dist/win32/*.exe  # times must not matter
TZ=Asia/Tokyo packaging/make.sh --no-build >/dev/null
status=0
for package in "$first"/*; do
    cmp "$package" "build/packages/${package##*/}" || status=1
done
# What a user finds in a zip file: the three files, as they are in dist.
for kind in win64 win32; do
    python3 - "$kind" build/packages/*-$kind.zip <<'CHECK' || status=1
import sys, zipfile
kind, package = sys.argv[1:]
names = ["Kestrum2/Kestrum2.exe", "Kestrum2/Kestrum_Jr.exe", "Kestrum2/Help.htm"]
with zipfile.ZipFile(package) as zip_file:
    if zip_file.namelist() != names:
        sys.exit(f"{package} holds {zip_file.namelist()}")
    for name in names:
        with open(f"dist/{kind}/{name.split('/')[1]}", "rb") as file:
            if file.read() != zip_file.read(name):
                sys.exit(f"{package}: {name} is another one")
CHECK
done
exit $status
