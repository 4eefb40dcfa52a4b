#!/bin/sh
# Runs clang-tidy, two files at a time, with the compile commands of the asan build, which it configures.
# `scripts/tidy.sh` looks at all sources but those of tests, benchmarks and fuzz targets; `scripts/tidy.sh
# --since BASE` at those of them that changed since a commit; `scripts/tidy.sh FILE...` at the files named.
# Needs `scripts/install-dependencies.sh lint`.
set -eu
cd "$(dirname "$0")/.."

folders="base platform resources siblings bridge model programs embedded"
if [ "${1-}" = --since ]; then
    # shellcheck disable=SC2086 # a list of words
    files=$(git diff --name-only --diff-filter=d "$2" -- $folders | grep '\.cpp$' || true)
elif [ $# -gt 0 ]; then
    files=$(printf '%s\n' "$@")
else
    files=$(scripts/tree_files.py .cpp | grep -E "^($(echo "$folders" | tr ' ' '|'))/")
fi
if [ -z "$files" ]; then
    echo "Nothing to look at."
    exit 0
fi

cmake --preset asan >/dev/null
printf '%s\n' "$files" | tr '\n' '\0' | xargs -0 -n 1 -P 2 clang-tidy -p build/asan --quiet
