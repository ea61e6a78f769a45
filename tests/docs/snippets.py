#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Writes the C++ examples of the pages to a source file, so that the build compiles them.

snippets.py SOURCE PAGE...

Each block becomes a function body in which `serverSide`, `configuration` and `event` are declared,
unless it contains declarations at file level (an include, a class, a function). The line
"<!-- not compiled: REASON -->" before a block excludes it.
"""

import pathlib
import re
import sys

BLOCK = re.compile(r"(<!-- not compiled: [^\n]+ -->\n)?^```cpp\n(.*?)^```$", re.MULTILINE | re.DOTALL)
INCLUDE = re.compile(r"^#include .*\n", re.MULTILINE)
FILE_LEVEL = re.compile(r"^(#|class |struct |namespace |template|static |using |int |bool |void )",
                        re.MULTILINE)
HEAD = """// Written by tests/docs/snippets.py from the pages of docs/.
#include "jx/JXServerSide.h"
"""


def blocks(page):
    """Yields (line number, C++) of each block of a page."""
    text = page.read_text(encoding="utf-8")
    for match in BLOCK.finditer(text):
        if not match.group(1):
            yield text.count("\n", 0, match.start(2)) + 1, match.group(2)


def compiled(page, line, text, number):
    includes = "".join(INCLUDE.findall(text))
    # An empty line replaces each include, so that line numbers in messages match the page.
    body = INCLUDE.sub("\n", text)
    where = f'#line {line} "{page}"\n'
    if FILE_LEVEL.search(text):
        return includes, f"namespace page{number} {{\n{where}{body}}}\n"
    return includes, (
        f"void page{number}(const std::shared_ptr<jx::ServerSide>& serverSide,\n"
        "    jx::JXCoreConfiguration& configuration, const std::shared_ptr<jx::JXEvent>& event) {\n"
        f"  (void)serverSide, (void)configuration, (void)event;\n  {{\n{where}{body}  }}\n}}\n")


def main():
    source, pages = pathlib.Path(sys.argv[1]), sys.argv[2:]
    parts = [(page, line, text) for page in pages for line, text in blocks(pathlib.Path(page))]
    if not parts:
        sys.exit("the pages have no C++ blocks")
    made = [compiled(page, line, text, number) for number, (page, line, text) in enumerate(parts)]
    source.write_text(HEAD + "".join(one for one, _ in made) + "".join(one for _, one in made),
                      encoding="utf-8")


if __name__ == "__main__":
    main()
