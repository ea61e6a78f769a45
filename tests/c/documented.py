# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Finds undocumented functions of the C interface: documented.py SOURCE."""

import glob
import os
import re
import sys

OPERATION = re.compile(r"(JX_API|static inline) .*?\b(\w+)\(")


def undocumented(path):
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    return [match.group(2) for before, line in zip(lines, lines[1:])
            if (match := OPERATION.match(line)) and not before.startswith("///")]


def main():
    os.chdir(sys.argv[1])
    paths = glob.glob("jx/c/*.h") + glob.glob("jx/c/events/*.h")
    findings = [f"{path}: {name} is not documented" for path in sorted(paths)
                for name in undocumented(path)]
    print("\n".join(findings) or f"{len(paths)} headers checked")
    sys.exit(1 if findings or len(paths) < 35 else 0)


if __name__ == "__main__":
    main()
