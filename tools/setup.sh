#!/usr/bin/env bash
# Installs what building and testing need on Debian 12; does nothing when all is there.
# With `--names` it only prints the packages.
set -euo pipefail

packages=(
    cmake ninja-build g++ ccache clang-format python3 doctest-dev
    g++-mingw-w64-x86-64-win32 g++-mingw-w64-i686-win32
    wine wine64 fonts-wine libc6-i386
    xvfb xauth xdotool x11-utils imagemagick fonts-dejavu-core librsvg2-bin
    clang libclang-rt-14-dev libbenchmark-dev zip nsis
)

if [[ ${1:-} == --names ]]; then
    printf '%s\n' "${packages[@]}"
    exit
fi
if ! command -v apt-get >/dev/null; then
    echo "setup: this is not a Debian system; needed are: ${packages[*]}" >&2
    exit 0
fi

installed=$(dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' 2>/dev/null | sed -n 's/^ii  //p')
missing=()
for name in "${packages[@]}"; do
    grep -qx -- "$name" <<<"$installed" || missing+=("$name")
done
((${#missing[@]})) || exit 0

as_root=()
if ((EUID != 0)); then
    as_root=(sudo)
fi
echo "setup: installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
for step in "update" "install --no-install-recommends ${missing[*]}"; do
    # The words of a step are the arguments.
    # shellcheck disable=SC2086
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y $step >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "setup: apt-get $step failed" >&2
        # A stale list may still do for installing; a failed installation may not.
        [[ $step == update ]] || exit 1
    fi
done
