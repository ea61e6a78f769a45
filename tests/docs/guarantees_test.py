#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Checks that every test that docs/guarantees.md names exists.

guarantees_test.py ROOT     the root of the tree
"""

import pathlib
import re
import sys

# In backticks: Suite.Test, or Suite.* for a whole suite, after the name of the instantiation if the
# test has parameters; or the lower-case name of a test that ctest runs directly.
NAMED = re.compile(r"`((?:\w+/)?[A-Z]\w+\.(?:[A-Z]\w+|\*)|soak\.\w+)`")
MACRO = re.compile(r"\bTEST(_F|_P)?\(\s*(\w+),\s*(\w+)\)")
INSTANTIATION = re.compile(r"\bINSTANTIATE_TEST_SUITE_P\(\s*(\w+),\s*(\w+)")


def existing_tests(root):
    """Returns the names of all tests in the sources, and "Suite.*" for each suite."""
    names, parameterised, instances = set(), [], []
    for path in sorted((root / "tests").rglob("*.cpp")):
        text = path.read_text(encoding="utf-8")
        for kind, suite, test in MACRO.findall(text):
            if kind == "_P":
                parameterised.append((suite, test))
            else:
                names |= {f"{suite}.{test}", f"{suite}.*"}
        instances += INSTANTIATION.findall(text)
    for instance, suite in instances:
        names |= {f"{instance}/{suite}.{test}" for known, test in parameterised if known == suite}
    soak = root / "tests/soak/CMakeLists.txt"
    if soak.exists():
        text = soak.read_text(encoding="utf-8")
        names |= {f"soak.{name}" for name in re.findall(r"^jx_soak_test\((\w+)", text, re.M)}
    return names


def main():
    root = pathlib.Path(sys.argv[1])
    named = NAMED.findall((root / "docs/guarantees.md").read_text(encoding="utf-8"))
    if len(named) < 20:
        sys.exit(f"docs/guarantees.md must name at least 20 tests, found {len(named)}")
    known = existing_tests(root)
    missing = [name for name in named if name not in known]
    for name in missing:
        print(f"docs/guarantees.md: test {name} does not exist")
    sys.exit(1 if missing else 0)


if __name__ == "__main__":
    main()
