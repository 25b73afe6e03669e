#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz on a copy of its corpus for a few seconds, two at a time: a crash, a hang or a
# sanitizer's finding fails. More time, and what is found kept as the start of the next run:
# FUZZ_SECONDS=600 FUZZ_KEEP=build/fuzz/found tools/fuzz-smoke.sh [TARGET...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export keep=${FUZZ_KEEP:-$work}

run() {
    local target=$1
    local seeds=fuzz/corpus/${target#fuzz_} corpus=$keep/$target log=$2/$target.log
    mkdir -p "$corpus"
    if [[ -d $seeds ]]; then
        cp "$seeds"/* "$corpus"
    fi
    # The memory of freed objects is kept back for a while only: the kernel would spend its time on clearing more.
    if ! ASAN_OPTIONS=quarantine_size_mb=32 "build/fuzz/fuzz/$target" -max_total_time="${FUZZ_SECONDS:-5}" -timeout=60 \
        -rss_limit_mb=2048 -artifact_prefix="build/fuzz/$target-" "$corpus" >"$log" 2>&1; then
        cat "$log"
        return 1
    fi
    echo "$target: $(grep DONE "$log")"
}
export -f run

targets=("$@")
if ((${#targets[@]} == 0)); then
    mapfile -t targets < <(find build/fuzz/fuzz -maxdepth 1 -type f -executable -name 'fuzz_*' -printf '%f\n' 2>/dev/null | sort)
fi
if ((${#targets[@]} == 0)); then
    echo "not built: the preset fuzz"
    [[ ${KESTRUM_ALL:-0} == 1 ]] && exit 1
    exit 77
fi
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -c 'run "$1" "$2"' run {} "$work"
