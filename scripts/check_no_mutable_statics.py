#!/usr/bin/env python3
"""Holds libraries to having no mutable static state but the globals that cmake/globals.txt names:
`check_no_mutable_statics.py ARCHIVE...` reads the archives' symbol tables and prints each other symbol that lies
in writable memory (variables, static locals and their guards, thread-locals), with archive and object; exit code 1
when there are any, and when a global of the list is in none of the archives. Constants that only the loader
writes, such as tables of virtual functions, lie in .data.rel.ro and are fine. `--self-test` compiles a sample
of each kind with $CXX (g++) and looks whether it is told apart."""

import os
import re
import subprocess
import sys
import tempfile

# objdump -t: address, seven flag columns, section, size, name.
SYMBOL = re.compile(r"^[0-9a-f]+ (.{7}) (\S+)\s+[0-9a-f]+ +(?:\.hidden |\.internal |\.protected )?(.+)$")
MEMBER = re.compile(r"^(\S.*):\s+file format ")
MUTABLE_SECTION = re.compile(r"(\.(data|bss|tdata|tbss|ldata|lbss)(\..*)?|\*COM\*)")
CONSTANT_SECTION = re.compile(r"\.data\.rel\.ro(\..*)?")
# The compiler's own pointer to the routine that unwinds: writable in the object, never written by anyone.
COMPILERS_OWN = "DW.ref."


def mutable_symbols(archive):
    """(object, section, symbol) of each symbol in writable memory."""
    command = ["objdump", "--syms", "--demangle", "--wide", archive]
    listing = subprocess.run(command, capture_output=True, text=True, encoding="utf-8", errors="replace")
    if listing.returncode != 0:
        sys.exit(f"{archive}: {listing.stderr.strip()}")
    member = ""
    for line in listing.stdout.splitlines():
        if start := MEMBER.match(line):
            member = start[1]
            continue
        symbol = SYMBOL.match(line)
        if not symbol or "d" in symbol[1] or symbol[3].startswith(COMPILERS_OWN):
            continue
        if MUTABLE_SECTION.fullmatch(symbol[2]) and not CONSTANT_SECTION.fullmatch(symbol[2]):
            yield member, symbol[2], symbol[3]


def known_globals():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "cmake", "globals.txt")
    with open(path, encoding="utf-8") as file:
        return [line.strip() for line in file if line.strip() and not line.startswith("#")]


def check(archives, known):
    found = [(archive, *symbol) for archive in archives for symbol in mutable_symbols(archive)]
    faults = [
        f"{archive}({member}): {symbol} is in {section}"
        for archive, member, section, symbol in found
        if symbol.removeprefix("guard variable for ") not in known
    ]
    symbols = {symbol for _, _, _, symbol in found}
    return faults + [f"{name} is in cmake/globals.txt and nowhere else" for name in known if name not in symbols]


SELF_TEST_SOURCE = """
    #include <cstdio>
    #include <string>
    struct Good { virtual ~Good(); virtual int value() const; };
    Good::~Good() = default;
    int Good::value() const { return 1; }
    const char* const goodNames[] = {"a", "b"};
    static constexpr int goodNumbers[] = {1, 2, 3};
    const Good& goodReference(const Good& good) { return dynamic_cast<const Good&>(good); }
    const char* goodName(int i) { return goodNames[i]; }
    int goodNumber(int i) { return goodNumbers[i]; }
    void goodCatch(void (*call)()) { try { call(); } catch (const Good&) { std::puts("caught"); } }

    int badZero;
    int badNumber = 7;
    const char* badPointer = "a";
    static int badCounter;
    int badCount() { return ++badCounter; }
    thread_local int badOfThread = 3;
    thread_local int badZeroOfThread;
    inline int badInline = 1;
    int* badInlineAddress() { return &badInline; }
    const std::string& badLocal() { static const std::string badText(100, 'x'); return badText; }
    template <typename T> struct Bad { static T badMember; };
    template <typename T> T Bad<T>::badMember = 5;
    template struct Bad<int>;
"""
SELF_TEST_FOUND = {
    "badZero", "badNumber", "badPointer", "badCounter", "badOfThread", "badZeroOfThread", "badInline",
    "badLocal()::badText", "guard variable for badLocal()::badText", "Bad<int>::badMember",
}


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        source, made, archive = (os.path.join(folder, n) for n in ("a.cpp", "a.o", "liba.a"))
        with open(source, "w", encoding="utf-8") as file:
            file.write(SELF_TEST_SOURCE)
        compiler = os.environ.get("CXX", "g++")
        subprocess.run([compiler, "-std=c++20", "-O2", "-g1", "-fPIC", "-c", source, "-o", made], check=True)
        subprocess.run(["ar", "rcs", archive, made], check=True)
        found = {re.sub(r"\[abi:\w+\]", "", symbol) for _, _, symbol in mutable_symbols(archive)}
    if found != SELF_TEST_FOUND:
        sys.exit(f"self test: missed {SELF_TEST_FOUND - found}, wrongly reported {found - SELF_TEST_FOUND}")


def main():
    arguments = sys.argv[1:]
    if arguments == ["--self-test"]:
        self_test()
        return
    if not arguments:
        sys.exit("usage: check_no_mutable_statics.py ARCHIVE...")
    faults = check(arguments, known_globals())
    print("".join(f"{fault}\n" for fault in faults), end="")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
