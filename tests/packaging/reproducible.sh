#!/usr/bin/env bash
# The same sources give the same programs: builds a copy of the tree in another folder and compares with build/win64,
# byte by byte. Exit code 77 when that is not configured (1 with KESTRUM_ALL=1).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
if [[ ! -f build/win64/build.ninja ]]; then
    echo "not configured: build/win64"
    [[ ${KESTRUM_ALL:-0} == 1 ]] && exit 1
    exit 77
fi
programs=(Kestrum2 Kestrum_Jr)
copy=build/reproducible/in-another-folder
log=build/reproducible/log
build() {
    cmake --build build/win64 --target "${programs[@]}" -j 2 >"$log" 2>&1 || { tail -n 40 "$log"; exit 1; }
}

# What was built before stays, so that only the changes are built anew; files keep their times.
mkdir -p "$copy"
find "$copy" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
tar -c --exclude=./build --exclude=./dist --exclude=./.git . | tar -x -C "$copy"
build
(cd "$copy" && cmake --preset win64) >"$log" 2>&1 || { cat "$log"; exit 1; }
log=$PWD/$log
(cd "$copy" && build)

same=0
for program in "${programs[@]}"; do
    cmp "build/win64/src/$program.exe" "$copy/build/win64/src/$program.exe" || same=1
done
exit $same
