#!/bin/sh
# Formats all C++ sources of the tree in place, by the rules in .clang-format.
set -eu
cd "$(dirname "$0")/.."
scripts/tree_files.py .cpp .h | tr '\n' '\0' | xargs -0 clang-format -i
