#!/usr/bin/env python3
"""Holds the German texts to the English ones where no compiler does: what the host says through tr() and hostText()
stands in embedded/services/german_texts.cpp, which holds nothing else above the widget library's own, and
messages.de.txt of the package has the identifiers and places for values of messages.txt. Each page of the help is
there in German with the same headings, and what pages have in bold is what a dialog or the window says. Prints a line
for each that does not; exit code 1 when there are any. `--self-test` looks whether each kind of fault is found."""

import os
import re
import sys

from tree_files import ROOT, tree_files

LITERALS = r'(?:u?"(?:[^"\\]|\\.)*"\s*)+'
SAID = re.compile(r'\b(?:tr|hostText)\(\s*(' + LITERALS + r')\)')
PROMPT = re.compile(r'^    \{u"[A-Z]+", (u"[^"]+"), \w+\},$', re.M)
TOOL = re.compile(r'toolName = (u"[^"]+")')
ENTRY = re.compile(r'\{(' + LITERALS + r'),\s*(' + LITERALS + r')\}')
LIBRARYS_OWN = "// The widget library's own"
HEADING = re.compile(r"^(#+) ", re.M)
BOLD = re.compile(r"\*\*(.+?)\*\*", re.S)
PLACE = re.compile(r"%(?:\d|[sd])")


def text_of(literals):
    """What adjacent string literals say, in one spelling of each character."""
    joined = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals))
    return re.sub(r"\\u([0-9a-f]{4})", lambda code: chr(int(code[1], 16)), joined)


def said_in(source):
    return {text_of(literals) for literals in SAID.findall(source)}


def host_faults(said, table):
    own, library = table.split(LIBRARYS_OWN)
    entries = {text_of(english): text_of(german) for english, german in ENTRY.findall(own + library)}
    ours = {text_of(english) for english, _ in ENTRY.findall(own)}
    faults = [f"not in German: {text}" for text in sorted(said - entries.keys())]
    faults += [f"in German and nowhere else: {text}" for text in sorted(ours - said)]
    return faults + [
        f"other places for values in German: {english}"
        for english, german in entries.items()
        if sorted(PLACE.findall(english)) != sorted(PLACE.findall(german))
    ]


def package_faults(english, german):
    tables = [dict(re.findall(r"^([^;=\s][^=\n]*)=(.*)$", text, re.M)) for text in (english, german)]
    forms = [{name: sorted(set(PLACE.findall(text))) for name, text in table.items()} for table in tables]
    return [
        f"messages.de.txt is not as messages.txt: {name}"
        for name in sorted(forms[0].keys() | forms[1].keys())
        if forms[0].get(name) != forms[1].get(name)
    ]


def labels_in(source):
    """What is said in a source, as a reader sees it: without the marks of keys and the dots of commands."""
    texts = (text_of(literals) for literals in re.findall(LITERALS, source))
    return {text.replace("&", "").removesuffix("...") for text in texts}


def help_faults(english, german, labels):
    """`english` and `german`: names with their pages; `labels`: those of English and those of German."""
    faults = [f"help page in one language only: {name}" for name in sorted(english.keys() ^ german.keys())]
    faults += [
        f"other headings in German: {name}"
        for name in sorted(english.keys() & german.keys())
        if HEADING.findall(english[name]) != HEADING.findall(german[name])
    ]
    return faults + [
        f"no label of this name: {bold} in {name}"
        for pages, known in zip((english, german), labels)
        for name, page in sorted(pages.items())
        for bold in BOLD.findall(page)
        if " ".join(bold.split()) not in known
    ]


def read(path):
    with open(f"{ROOT}/{path}", encoding="utf-8") as file:
        return file.read()


def faults_of_help():
    pages, labels = ({}, {}), (set(), set())
    for path in tree_files(suffixes=(".md", ".cpp")):
        if path.startswith("docs/help/"):
            pages["/de/" in path][os.path.basename(path)] = read(path)
        elif path.startswith("resources/"):
            labels["/german/" in path].update(labels_in(read(path)))
    return help_faults(*pages, labels)


def faults_of_tree():
    said = set()
    for path in tree_files(suffixes=(".cpp", ".h")):
        if path.startswith(("embedded/", "programs/")):
            said |= said_in(read(path))
    said |= {text_of(prompt) for prompt in PROMPT.findall(read("embedded/palettes/palette_actions.cpp"))}
    said |= {text_of(name) for name in TOOL.findall(read("host/palette_set.h"))}
    package = "embedded/package/messages"
    return (
        host_faults(said, read("embedded/services/german_texts.cpp"))
        + package_faults(read(package + ".txt"), read(package + ".de.txt"))
        + faults_of_help()
    )


def self_test():
    said = said_in('tr("One %1 " "more"); x(hostText(u"Two")); tr("Th\\u2026");')
    good = '{u"One %1 more", u"Noch %1"}, {u"Two", u"Zwei"}, {u"Th\u2026", u"D"}, ' + LIBRARYS_OWN + ' {u"L", u"B"}'
    bad = good.replace("Noch %1", "Noch").replace('u"Two"', 'u"Too"')
    package = "; a=b\na=A %1\nb=B\n"
    labels = [labels_in('{1, u"&Open..."}'), labels_in('{1, u"Ö&ffnen nach..."}')]
    pages = [{"a": "# A\n**Open**"}, {"a": "# A\n**Öffnen\nnach**"}]
    others = [{"a": "# A\n## B\n**Open...**", "b": ""}, {"a": "# A\n**Open**"}]
    found = [
        host_faults(said, good),
        host_faults(said, bad),
        package_faults(package, package),
        package_faults(package, "a=A\nc=B\n"),
        help_faults(*pages, labels),
        help_faults(*others, labels),
    ]
    counts = [len(faults) for faults in found]
    if counts != [0, 3, 0, 3, 0, 4]:
        sys.exit(f"the check itself fails: {found}")


if __name__ == "__main__":
    if "--self-test" in sys.argv[1:]:
        self_test()
    elif found := faults_of_tree():
        print("\n".join(found))
        sys.exit(1)
