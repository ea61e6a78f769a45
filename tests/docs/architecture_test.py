#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Checks the event lifecycle table of docs/architecture.md: its files and operations exist.

architecture_test.py ROOT     the root of the tree
"""

import pathlib
import re
import sys

STEP = re.compile(r"^\| (\d+) \| (.+?) \|", re.MULTILINE)


def errors(root, number, cell):
    """Yields what a step names and is missing. Its operations must be in one of its files."""
    sources = ""
    for name in re.findall(r"`([\w/]+\.(?:cpp|h))`", cell):
        found = [path for path in root.glob("jx/**/" + name.rsplit("/", 1)[-1])
                 if path.as_posix().endswith("/" + name)]
        if len(found) != 1:
            yield f"step {number}: {name} does not exist"
        sources += "".join(path.read_text(encoding="utf-8") for path in found)
    for name in re.findall(r"`(\w+)`", cell):
        if not re.search(rf"\b{name}\(", sources):
            yield f"step {number}: {name} is in none of its files"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    steps = STEP.findall((root / "docs/architecture.md").read_text(encoding="utf-8"))
    if [int(number) for number, _ in steps] != list(range(1, 13)):
        sys.exit(f"docs/architecture.md must have the steps 1 to 12 of the diagram, found {len(steps)}")
    found = [error for number, cell in steps for error in errors(root, number, cell)]
    print("\n".join(found))
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
