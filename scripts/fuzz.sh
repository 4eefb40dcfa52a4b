#!/bin/bash
# Runs the fuzz targets that are built in build/fuzz, as many at a time as there are processors. Seed inputs from
# fuzz/corpus/TARGET are copied to build/fuzz/corpus/TARGET, where what a run finds is added; inputs that make
# a target fail are left in build/fuzz/findings/TARGET. Every run starts from the same RYV_FUZZ_SEED (1), so that
# it can be repeated; 0 is a new one each time. The words of NAME_fuzz's input are in fuzz/NAME.dict.
# `scripts/fuzz.sh SECONDS [TARGET...]`, all by default.
set -euo pipefail
cd "$(dirname "$0")/.."

fuzz_one() {
    local seconds=$1 target=$2 options=()
    local corpus=build/fuzz/corpus/$target findings=build/fuzz/findings/$target log=build/fuzz/$target.log
    mkdir -p "$corpus" "$findings"
    if [ -d "fuzz/corpus/$target" ]; then
        cp -R "fuzz/corpus/$target/." "$corpus"
    fi
    if [ -f "fuzz/${target%_fuzz}.dict" ]; then
        options+=("-dict=fuzz/${target%_fuzz}.dict")
    fi
    if "build/fuzz/bin/$target" -seed="${RYV_FUZZ_SEED:-1}" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 "${options[@]}" \
        -artifact_prefix="$findings/" "$corpus" >"$log" 2>&1; then
        echo "$target: nothing found, $(tail -n 1 "$log" | tr '[:upper:]' '[:lower:]')"
    else
        grep -a -m 1 -B 5 -A 30 -E "ERROR: |runtime error: " "$log" || tail -n 30 "$log"
        echo "$target: FAILED, the input is in $findings"
        return 1
    fi
}
export -f fuzz_one

if [ $# -eq 0 ]; then
    echo "usage: scripts/fuzz.sh SECONDS [TARGET...]" >&2
    exit 2
fi
seconds=$1
shift
if [ $# -eq 0 ]; then
    for program in build/fuzz/bin/*_fuzz; do
        if [ -x "$program" ]; then
            set -- "$@" "${program##*/}"
        fi
    done
fi
if [ $# -eq 0 ]; then
    echo "No fuzz targets in build/fuzz/bin: cmake --preset fuzz && cmake --build --preset fuzz" >&2
    exit 1
fi
# shellcheck disable=SC2016 # the inner shell expands its arguments
printf '%s\n' "$@" | xargs -P "$(nproc)" -I '{}' bash -c 'set -eu; fuzz_one "$1" "$2"' fuzz_one "$seconds" '{}'
