#!/usr/bin/env python3
"""The files that belong to the tree: what git knows or would add, or, where there is no git (a bare machine,
an unpacked archive), everything outside build and cache folders. `tree_files.py [SUFFIX...]` prints their
names relative to the root, one a line, only those that end in one of the suffixes when any are given."""

import os
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
NOT_OURS = {".git", ".cache", "__pycache__"}


def walked(root):
    for folder, subfolders, names in os.walk(root):
        at_top = folder == root
        subfolders[:] = [s for s in subfolders if s not in NOT_OURS and not (at_top and s == "build")]
        for name in names:
            yield os.path.relpath(os.path.join(folder, name), root)


def known_to_git(root):
    if not os.path.exists(os.path.join(root, ".git")):
        return None
    command = ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    try:
        listed = subprocess.run(command, capture_output=True, check=True).stdout
    except (OSError, subprocess.CalledProcessError):
        return None
    return [os.fsdecode(name) for name in listed.split(b"\0") if name]


def tree_files(root=ROOT, suffixes=()):
    """Names relative to `root`, sorted; files that are deleted but not yet committed are left out."""
    names = known_to_git(root)
    if names is None:
        names = walked(root)
    found = {n for n in names if not suffixes or n.endswith(tuple(suffixes))}
    return sorted(n for n in found if os.path.isfile(os.path.join(root, n)))


if __name__ == "__main__":
    for file_name in tree_files(suffixes=sys.argv[1:]):
        print(file_name)
