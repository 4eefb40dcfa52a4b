#!/usr/bin/env python3
"""The results of the reliability tests as a table: scripts/reliability_table.py RESULT.json...

The files are what --gtest_output=json:FILE wrote. What a test recorded stands behind its time, the size first.
"""

import json
import os
import re
import sys

SIZES = ("rounds", "updates", "saves", "kills", "changes", "faults", "neighbours")
KNOWN = {
    "name", "file", "line", "status", "result", "timestamp", "time", "classname", "value_param", "type_param",
    "failures", "skipped"}


def words(name):
    """'holderKilled_theNextQuestionSaysNone' as 'holder killed, the next question says none'."""
    spaced = re.sub(r"(?<=[A-Za-z0-9])(?=[A-Z])", " ", name).lower()
    return spaced.replace("_", ", ")


def outcome(case):
    if "failures" in case:
        return "**failed**"
    return "skipped" if case["result"] == "SKIPPED" else "passed"


def rows(path):
    if not os.path.exists(path):
        yield f"| {os.path.basename(path)} | | **ended early** | | |"
        return
    with open(path, encoding="utf-8") as file:
        suites = json.load(file)["testsuites"]
    for suite in suites:
        for case in suite["testsuite"]:
            recorded = {key: value for key, value in case.items() if key not in KNOWN}
            size = ", ".join(f"{recorded.pop(key)} {key}" for key in SIZES if key in recorded)
            rest = ", ".join(f"{words(key)}: {value}" for key, value in recorded.items())
            seconds = float(case["time"].rstrip("s"))
            yield f"| {words(case['name'])} | {size} | {outcome(case)} | {seconds:.1f} | {rest} |"


def main():
    print("| test | size | result | s | measured |")
    print("|---|---|---|---:|---|")
    for path in sys.argv[1:]:
        for row in rows(path):
            print(row)


if __name__ == "__main__":
    main()
