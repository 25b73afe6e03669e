#!/usr/bin/env bash
# The committed pictures are those of their sources: draws them anew in a copy and compares, byte by byte.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp -r assets "$copy"
rm -f "$copy"/assets/*.{bmp,ico}
"$copy/assets/make-artwork.sh"
diff -rq assets "$copy/assets"
