#!/usr/bin/env python3
"""Makes the demo project "Pump Station" beside this script.

    make_demo.py            write all files
    make_demo.py --check    write nothing; exit 1 if a file differs
"""

import argparse
import sys
from pathlib import Path

import package

PROJECT_FOLDER = Path(__file__).resolve().parent / "pump-station"


def write_files(folder, files):
    for name in stale_files(folder, files):
        (folder / name).unlink()
    for name, content in files.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)


def stale_files(folder, files):
    """Files in the folder that the package does not hold."""
    present = {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}
    return sorted(present - set(files))


def differences(folder, files):
    """One line for every file that is missing, changed or left over."""
    found = [f"not part of the package: {name}" for name in stale_files(folder, files)]
    for name, content in files.items():
        path = folder / name
        if not path.is_file():
            found.append(f"missing: {name}")
        elif path.read_bytes() != content:
            found.append(f"differs: {name}")
    return found


def main():
    parser = argparse.ArgumentParser(description='Makes the demo project "Pump Station".')
    parser.add_argument("--check", action="store_true", help="only compare, exit 1 on differences")
    arguments = parser.parse_args()
    files = package.build()
    if not arguments.check:
        write_files(PROJECT_FOLDER, files)
        return 0
    found = differences(PROJECT_FOLDER, files)
    for entry in found:
        print(entry, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
