#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Checks that every log message that docs/troubleshooting.md quotes is on docs/logging.md.

troubleshooting_test.py ROOT     the root of the tree

A quoted message is a line "[JX LEVEL] TEXT" of a code block, a message of the table "By log
message", or a code span of at least four words that begins with a capital letter.
"""

import pathlib
import re
import sys

import log_messages

LINE = re.compile(r"^\[JX (\d)\] (.+)$", re.MULTILINE)
BLOCK = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
SPAN = re.compile(r"`+([^`\n]+)`+")
INDEX_ROW = re.compile(r"^\| `+([^`]+)`+ \| \[.+\)? \|$", re.MULTILINE)


def quotations(page):
    """Yields the text of each quoted message with its level, an int or None."""
    for level, text in LINE.findall(page):
        yield text, int(level)
    index = page.split("\n## By log message\n", 1)[1].split("\n## ", 1)[0]
    for text in INDEX_ROW.findall(index):
        yield text, None
    for text in SPAN.findall(BLOCK.sub("", page)):
        if text[0].isupper() and len(text.split()) >= 4:
            yield text, None


def main():
    root = pathlib.Path(sys.argv[1])
    page = (root / "docs/troubleshooting.md").read_text(encoding="utf-8")
    listed = log_messages.listed((root / "docs/logging.md").read_text(encoding="utf-8"))
    # A pattern with few letters would match anything.
    patterns = [(log_messages.as_pattern(text), level) for text, level in listed
                if len(re.findall("[A-Za-z]", text)) >= 8]
    quoted = list(quotations(page))
    if len(quoted) < 30:
        sys.exit(f"docs/troubleshooting.md must quote at least 30 messages, found {len(quoted)}")
    unknown = [text for text, level in quoted
               if not any(pattern.fullmatch(text) and level in (None, known)
                          for pattern, known in patterns)]
    for text in unknown:
        print(f"docs/troubleshooting.md: not on docs/logging.md: {text}")
    sys.exit(1 if unknown else 0)


if __name__ == "__main__":
    main()
