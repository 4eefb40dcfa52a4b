#!/bin/bash
# Runs the tests of reliability (tests/system/*reliability*) as they have to hold for a release: many times more
# rounds than in ./test, and without sanitizers, so that times count. Prints what bench/README.md shows: a table of
# tests with their sizes and what they measured. `scripts/reliability.sh [FILTER]`, a filter of test names as
# --gtest_filter takes it, all by default. RYV_RELIABILITY=reduced runs as many rounds as ./test does. Exit code 1
# if any test failed.
set -euo pipefail
cd "$(dirname "$0")/.."

folder=build/reliability
programs=(lock_reliability_tests manager_reliability_tests watch_reliability_tests)
export RYV_RELIABILITY=${RYV_RELIABILITY:-full}

cmake --preset release -B "$folder" -DRYV_TESTS=ON >/dev/null
cmake --build "$folder" --target "${programs[@]}" -- --quiet

results=()
status=0
for program in "${programs[@]}"; do
    result=$PWD/$folder/$program.json
    rm -f "$result"
    "$folder/bin/$program" --gtest_filter="${1:-*}" --gtest_output="json:$result" >"$folder/$program.log" 2>&1 || {
        status=1
        grep -aE '^\[  FAILED|Failure|ERROR' -A 5 "$folder/$program.log" | head -n 40 >&2 || true
    }
    results+=("$result")
done
scripts/reliability_table.py "${results[@]}"
exit $status
