#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz on a copy of its corpus for a few seconds: a crash or a sanitizer's finding
# fails. More time: FUZZ_SECONDS=600 tools/fuzz-smoke.sh [TARGET...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

targets=("$@")
if ((${#targets[@]} == 0)); then
    mapfile -t targets < <(find build/fuzz/fuzz -maxdepth 1 -type f -executable -name 'fuzz_*' -printf '%f\n' 2>/dev/null | sort)
fi
if ((${#targets[@]} == 0)); then
    echo "not built: the preset fuzz"
    [[ ${KESTRUM_ALL:-0} == 1 ]] && exit 1
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for target in "${targets[@]}"; do
    corpus=$work/$target
    mkdir "$corpus"
    if [[ -d fuzz/corpus/${target#fuzz_} ]]; then
        cp -r "fuzz/corpus/${target#fuzz_}/." "$corpus"
    fi
    if ! "build/fuzz/fuzz/$target" -max_total_time="${FUZZ_SECONDS:-5}" -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="build/fuzz/$target-" "$corpus" >"$work/log" 2>&1; then
        cat "$work/log"
        exit 1
    fi
    echo "$target: $(tail -n 1 "$work/log")"
done
