#!/usr/bin/env python3
"""Looks at the text of all files of the tree: marks of unfinished work that give no reason, paths of somebody's
own machine, and in sources (not in sample files and test data) white space at the end of a line, tabs in C++,
CR LF line ends and a last line without an end. Prints file:line: messages; exit code 1 when there are any.
`--self-test` tries each rule on a line that breaks it and on one that keeps it."""

import os
import re
import sys

from tree_files import ROOT, tree_files

CPP = (".cpp", ".h", ".inc")
SOURCES = CPP + (".py", ".sh", ".cmake", ".md", ".json", ".svg", "CMakeLists.txt", "layers.txt")
SCRIPTS = ("run", "test", ".ci/run", ".clang-format", ".clang-tidy", ".gitignore")
SEEDS = "fuzz/corpus/"

# The mark, a colon and at least two words of reason are fine, the bare mark is not.
UNFINISHED = re.compile(r"\b(?:TO[D]O|FI[X]ME|X[X]X)\b(?!: \S+ \S+)")
# Where this checkout lies: nobody else has it there.
OWN_PATH = re.compile(r"(?:^|[^0-9A-Za-z_./-])" + re.escape(str(ROOT)) + r"(?:/|$|[^0-9A-Za-z_.-])")


def is_source(name):
    return name in SCRIPTS or (name.endswith(SOURCES) and not name.startswith(SEEDS))


def line_faults(name, line):
    """What is wrong with one line, given with its line end but without the line feed."""
    if OWN_PATH.search(line):
        yield "a path of one machine"
    if not is_source(name):
        return
    if UNFINISHED.search(line):
        yield "unfinished, and no reason given: write the mark, a colon and why"
    if line.endswith("\r"):
        yield "CR LF"
    elif line != line.rstrip():
        yield "white space at the end of the line"
    if name.endswith(CPP) and "\t" in line:
        yield "a tab"


def faults(name, content):
    lines = content.decode("utf-8", errors="replace").split("\n")
    for number, line in enumerate(lines, 1):
        for fault in line_faults(name, line):
            yield f"{name}:{number}: {fault}"
    if is_source(name) and lines[-1]:
        yield f"{name}:{len(lines)}: the last line has no end"


SELF_TEST = (
    # file, content, number of faults
    ("a.cpp", "int a;\n", 0),
    ("a.cpp", "int a; \n", 1),
    ("a.cpp", "\tint a;\n", 1),
    ("a.py", "\ta = 1\n", 0),
    ("a.cpp", "int a;\r\n", 1),
    ("a.cpp", "int a;", 1),
    ("a.cpp", "", 0),
    ("a.cpp", "// TO" "DO\n// FIX" "ME later\n", 2),
    ("a.cpp", "// TO" "DO: waits for the reader of drawings\n", 0),
    ("a.md", f"see {ROOT}/a.cpp\n", 1),
    ("a.md", f"see {ROOT}-of-another/a.cpp and x{ROOT}/a\n", 0),
    ("tests/a.tsv", "a\t\r\nb", 0),
    ("fuzz/corpus/t/a.md", "a \r\nb", 0),
    ("tests/a.tsv", f"a\t{ROOT}/b", 1),
    ("run", "echo \n", 1),
)


def self_test():
    for name, content, expected in SELF_TEST:
        found = list(faults(name, content.encode()))
        if len(found) != expected:
            sys.exit(f"self test: {content!r} in {name}: expected {expected} faults, found {found}")


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return
    found = []
    for name in tree_files():
        with open(os.path.join(ROOT, name), "rb") as file:
            found += faults(name, file.read())
    print("".join(f"{fault}\n" for fault in found), end="")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
