#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""A promise in docs/guarantees.md names the tests that prove it: each of them exists.

guarantees_test.py ROOT     the root of the tree
"""

import pathlib
import re
import sys

# In backticks: a suite and a test, "*" for all of a suite, with an instantiation's name before it
# where the test has parameters; or a test that ctest knows by a lower-case name.
NAMED = re.compile(r"`((?:\w+/)?[A-Z]\w+\.(?:[A-Z]\w+|\*)|soak\.\w+)`")
MACRO = re.compile(r"\bTEST(_F|_P)?\(\s*(\w+),\s*(\w+)\)")
INSTANTIATION = re.compile(r"\bINSTANTIATE_TEST_SUITE_P\(\s*(\w+),\s*(\w+)")


def existing_tests(root):
    """The names of all tests in the sources, and "Suite.*" for each suite."""
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
        names |= {f"soak.{proof}" for proof in ("kills", "offline", "outage", "flush", "exit")
                  if re.search(rf"\b{proof}\b", text)}
    return names


def main():
    root = pathlib.Path(sys.argv[1])
    named = NAMED.findall((root / "docs/guarantees.md").read_text(encoding="utf-8"))
    if len(named) < 20:
        sys.exit(f"guarantees.md names {len(named)} tests only")
    known = existing_tests(root)
    missing = [name for name in named if name not in known]
    for name in missing:
        print(f"docs/guarantees.md: there is no test {name}")
    sys.exit(1 if missing else 0)


if __name__ == "__main__":
    main()
