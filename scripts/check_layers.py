#!/usr/bin/env python3
"""Holds the tree to the order of the folders in cmake/layers.txt: no source includes a header of a folder that
it may not see, no target links one, the module's folders (the column) include nothing but the tree and the
C++ standard library, and every folder that has sources stands in the list. Prints file:line: messages; exit
code 1 when there are any. `--self-test` runs it on a small tree that breaks each rule."""

import os
import re
import sys
import tempfile

from tree_files import ROOT, tree_files

SOURCES = (".cpp", ".h", ".inc")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
CMAKE_CALL = re.compile(r"\b(\w+)\s*\(([^()]*)\)")

STANDARD_HEADERS = frozenset("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg
    cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem
    format forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator
    latch limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
    ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex
    typeinfo unordered_map unordered_set utility valarray variant vector version
""".split())


class Layers:
    """Which folder sees which: the column, the folders beside it, and those that see everything."""

    def __init__(self, text):
        self.column = []
        self.seen_by = {}  # folder beside the column -> folders it sees
        self.free = set()
        for line in text.splitlines():
            line = line.split("#")[0].strip()
            beside = re.fullmatch(r"beside ([\w/]+):(.*)", line)
            free = re.fullmatch(r"free:(.*)", line)
            if beside:
                self.seen_by[beside[1]] = set(beside[2].split())
            elif free:
                self.free.update(free[1].split())
            elif line:
                self.column.append(line)

    def folder_of(self, path):
        """The folder of the list that a file is in; None when there is none."""
        parts = path.split("/")[:-1]
        for length in range(len(parts), 0, -1):
            folder = "/".join(parts[:length])
            if folder in self.column or folder in self.seen_by or folder in self.free:
                return folder
        return None

    def may_see(self, folder, other):
        if folder == other or folder in self.free:
            return True
        if folder in self.seen_by:
            return other in self.seen_by[folder]
        return other in self.column[: self.column.index(folder)]


def read(root, name):
    with open(os.path.join(root, name), encoding="utf-8") as file:
        return file.read()


def check_include(root, layers, name, quoted, angled):
    """What is wrong with one include, or None."""
    folder = layers.folder_of(name)
    included = quoted or angled
    if folder in layers.free and not os.path.isfile(os.path.join(root, included)):
        return None  # their own helpers and the libraries they use
    other = layers.folder_of(included)
    if angled:
        if other:
            return f'"{included}" belongs in quotes'
        if folder in layers.column and included not in STANDARD_HEADERS:
            return f"<{included}> is not of the C++ standard library"
        return None
    if not os.path.isfile(os.path.join(root, included)):
        return f'"{included}" is not a file of the tree, named from its root'
    if not other or not layers.may_see(folder, other):
        return f'"{included}" is out of reach of {folder}/'
    return None


def check_sources(root, layers):
    for name in tree_files(root, SOURCES):
        if not layers.folder_of(name):
            yield f"{name}:1: this folder is not in cmake/layers.txt"
            continue
        for number, line in enumerate(read(root, name).splitlines(), 1):
            include = INCLUDE.match(line)
            fault = include and check_include(root, layers, name, include[1], include[2])
            if fault:
                yield f"{name}:{number}: {fault}"


def cmake_calls(root, name):
    """(line number, command, words) of each call without nested parentheses in a CMake file."""
    text = re.sub(r"#.*", "", read(root, name))
    for call in CMAKE_CALL.finditer(text):
        yield text.count("\n", 0, call.start()) + 1, call[1], call[2].split()


def check_links(root, layers):
    """Each library belongs to the folder that declares it, and is linked from where that folder may be seen."""
    files = [n for n in tree_files(root, ("CMakeLists.txt",)) if layers.folder_of(n)]
    home = {}
    for name in files:
        for _, command, words in cmake_calls(root, name):
            if command in ("ryv_library", "add_library") and words:
                home[words[0]] = layers.folder_of(name)
    for name in files:
        folder = layers.folder_of(name)
        for number, command, words in cmake_calls(root, name):
            if command == "add_dependencies":
                continue  # built before, as what is loaded at run time; nothing is linked
            for word in words:
                if word in home and not layers.may_see(folder, home[word]):
                    yield f"{name}:{number}: {word} is out of reach of {folder}/"


def check(root):
    layers = Layers(read(root, "cmake/layers.txt"))
    return [*check_sources(root, layers), *check_links(root, layers)]


SELF_TEST_TREE = {
    "cmake/layers.txt": "# order\nlow\nmiddle\nhigh\nbeside aside: low middle\nbeside tools/t: low aside\nfree: tests\n",
    "low/a.h": '#include <vector>\n#  include "low/b.h"\n// #include "high/a.h"\n',
    "low/b.h": '#include "middle/a.h"\n',
    "middle/a.h": '#include "low/a.h"\n#include <unistd.h>\n#include <low/a.h>\n',
    "high/a.h": '#include "middle/a.h"\n#include "a.h"\n#include "aside/deep/a.h"\n',
    "aside/deep/a.h": '#include <unistd.h>\n#include "middle/a.h"\n#include "high/a.h"\n',
    "tools/t/main.cpp": '#include "aside/deep/a.h"\n#include "middle/a.h"\n',
    "tools/u/main.cpp": "",
    "tests/a.cpp": '#include "high/a.h"\n#include "helper.h"\n#include <gtest/gtest.h>\n',
    "low/CMakeLists.txt": "ryv_library(l_low SOURCES a.cpp)\n",
    "middle/CMakeLists.txt": "ryv_library(l_middle\n    SOURCES a.cpp\n    LINKS l_low l_high # up\n)\n",
    "high/CMakeLists.txt": "ryv_library(l_high SOURCES a.cpp LINKS l_middle l_low)\n",
    "aside/CMakeLists.txt": "add_library(l_aside a.cpp)\ntarget_link_libraries(l_aside PRIVATE l_high)\n",
}
SELF_TEST_FAULTS = """\
aside/deep/a.h:3: "high/a.h" is out of reach of aside/
high/a.h:2: "a.h" is not a file of the tree, named from its root
high/a.h:3: "aside/deep/a.h" is out of reach of high/
low/b.h:1: "middle/a.h" is out of reach of low/
middle/a.h:2: <unistd.h> is not of the C++ standard library
middle/a.h:3: "low/a.h" belongs in quotes
tools/t/main.cpp:2: "middle/a.h" is out of reach of tools/t/
tools/u/main.cpp:1: this folder is not in cmake/layers.txt
aside/CMakeLists.txt:2: l_high is out of reach of aside/
middle/CMakeLists.txt:1: l_high is out of reach of middle/
"""


def self_test():
    with tempfile.TemporaryDirectory() as root:
        for name, text in SELF_TEST_TREE.items():
            path = os.path.join(root, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        found = "".join(f"{fault}\n" for fault in check(root))
    if found != SELF_TEST_FAULTS:
        sys.exit(f"self test: expected\n{SELF_TEST_FAULTS}but found\n{found}")


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return
    faults = check(ROOT)
    print("".join(f"{fault}\n" for fault in faults), end="")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
