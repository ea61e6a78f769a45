#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Compares the messages of docs/logging.md with those of the sources, with their levels.

logging_test.py ROOT     the root of the tree
"""

import pathlib
import re
import sys

import log_messages


def main():
    root = pathlib.Path(sys.argv[1])
    page = (root / "docs/logging.md").read_text(encoding="utf-8")
    tree = log_messages.Tree(root)
    logged, listed = tree.messages(), log_messages.listed(page)
    errors = list(tree.errors)
    if len(logged) < 90:
        errors.append(f"expected at least 90 messages in the sources, found {len(logged)}")
    for text, level in sorted(logged - set(listed)):
        errors.append(f"docs/logging.md: missing, level {level}: {log_messages.readable(text)}")
    for text, level in sorted(set(listed) - logged):
        errors.append(f"docs/logging.md: not logged, level {level}: {log_messages.readable(text)}")
    for text, level in sorted({message for message in listed if listed.count(message) > 1}):
        errors.append(f"docs/logging.md: listed twice: {log_messages.readable(text)}")
    for line in page.splitlines():
        if re.match(r"\| \d[^|]*\|.*\|.*\|", line) and not log_messages.ROW.match(line):
            errors.append(f"docs/logging.md: not a row of a message: {line}")
    source = tree.sources[log_messages.LOGGER]
    has_format = '"[JX " + std::to_string(level) + "] "' in source
    if not has_format or "[JX <level>] <message>" not in page:
        errors.append("docs/logging.md: the format of the default sink has changed")
    for error in errors:
        print(error)
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main()
