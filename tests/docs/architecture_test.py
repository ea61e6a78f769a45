#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The way of an event in docs/architecture.md names files and operations: each is where it says.

architecture_test.py ROOT     the root of the tree
"""

import pathlib
import re
import sys

STEP = re.compile(r"^\| (\d+) \| (.+?) \|", re.MULTILINE)


def faults(root, number, cell):
    """What a step names that is not there. An operation belongs to a file named in its step."""
    sources = ""
    for name in re.findall(r"`([\w/]+\.(?:cpp|h))`", cell):
        found = [path for path in root.glob("jx/**/" + name.rsplit("/", 1)[-1])
                 if path.as_posix().endswith("/" + name)]
        if len(found) != 1:
            yield f"step {number}: there is no {name}"
        sources += "".join(path.read_text(encoding="utf-8") for path in found)
    for name in re.findall(r"`(\w+)`", cell):
        if not re.search(rf"\b{name}\(", sources):
            yield f"step {number}: no file that it names has {name}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    steps = STEP.findall((root / "docs/architecture.md").read_text(encoding="utf-8"))
    if [int(number) for number, _ in steps] != list(range(1, 13)):
        sys.exit(f"docs/architecture.md tells {len(steps)} steps, the picture 12")
    found = [fault for number, cell in steps for fault in faults(root, number, cell)]
    print("\n".join(found))
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
