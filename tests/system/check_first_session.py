"""Holds the first session of the README to what the programs do: `check_first_session.py README DRAFTA SAMPLE` types
what stands behind "Command: " into two consoles, in the order of the page, and compares what they print. The folder and
the user of this run stand for those of the page."""

import getpass
import os
import queue
import re
import shlex
import shutil
import socket
import subprocess
import sys
import tempfile
import threading

PROMPT = "Command: "
PATIENCE = 60  # seconds


class Console:
    """A console at a pipe; each answer ends with the echo of a marker."""

    def __init__(self, command, folder):
        profile = dict(os.environ, XDG_CONFIG_HOME=os.path.join(os.path.dirname(folder), "profile"))
        self.process = subprocess.Popen(command, cwd=folder, env=profile, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True, encoding="utf-8")
        self.lines = queue.Queue()
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(line.rstrip("\n"))
        self.lines.put(None)

    def type(self, line):
        self.process.stdin.write(line + "\n(progn (princ \"-- end --\\n\") (princ))\n")
        self.process.stdin.flush()
        answer = []
        while (printed := self.lines.get(timeout=PATIENCE)) is not None and printed != "-- end --":
            answer.append(printed)
        return answer

    def close(self):
        self.process.stdin.close()
        return self.process.wait(timeout=PATIENCE)


def blocks(readme):
    """(console, command line or None, [(typed, [expected line])]) of each block of the session."""
    for name, text in re.findall(r"```console (first|second)\n(.*?)```", readme, re.S):
        started, steps = None, []
        for line in text.splitlines():
            if line.startswith("$ "):
                started = line[2:]
            elif line.startswith(PROMPT):
                steps.append((line[len(PROMPT):], []))
            else:
                steps[-1][1].append(line)
        yield name, started, steps


def main(readme_path, drafta, sample):
    drafta = os.path.abspath(drafta)
    with open(readme_path, encoding="utf-8") as file:
        readme = file.read()
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        own = os.path.join(folder, "sample")
        shutil.copytree(sample, own)

        def here(text):
            text = text.replace("/home/u/sample", own).replace("\\\\home\\\\u\\\\sample", own.replace("/", "\\\\"))
            return text.replace("ann(drawing-office)", f"{getpass.getuser()}({socket.gethostname()})")

        consoles = {}
        for name, started, steps in blocks(readme):
            if started:
                program, *words = shlex.split(started.replace("/tmp/other", os.path.join(folder, "other")))
                if program != "drafta":
                    faults.append(f"{name}: {program} is not the program")
                consoles[name] = Console([drafta, *words], own)
            for typed, expected in steps:
                printed = consoles[name].type(here(typed)) if typed != "quit" else []
                if typed == "quit" and consoles[name].close() != 0:
                    faults.append(f"{name}: does not leave with 0")
                if printed != [here(line) for line in expected]:
                    faults.append(f"{name}: {typed}\n  printed  {printed}\n  expected {expected}")
        again = Console([drafta, "--console"], own)
        reopened = again.type("(ryv_getactiveproject)")
        if again.close() != 0 or not reopened or "Spare.kqp" not in reopened[-1]:
            faults.append(f"the next run does not open the project again: {reopened}")
        if not consoles:
            faults.append("the page has no session")
    print("\n".join(faults), end="")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
