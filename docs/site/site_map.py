# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Which pages the site has, in which order: what navigation.txt says, as far as it is there."""

import glob
import os
from collections import namedtuple

Page = namedtuple("Page", "path name question")

NAVIGATION = os.path.join(os.path.dirname(os.path.abspath(__file__)), "navigation.txt")
MAIN = "docs/site/main.md"
# Pages for readers of the repository, in whose place the site has others.
LEFT_OUT = {"README.md", "docs/README.md"}


def label(path):
    """What Doxygen knows a page by; its file is named after it."""
    return "index" if path == MAIN else os.path.basename(path)[:-3].lower()


def title_of(path):
    with open(path, encoding="utf-8") as file:
        return next(line[2:].strip() for line in file if line.startswith("# "))


def parts():
    """[(name of the part, [Page])], run at the root of the tree."""
    found = []
    with open(NAVIGATION, encoding="utf-8") as file:
        for line in file:
            line = line.strip()
            if line.startswith("= "):
                found.append((line[2:], []))
            elif line and not line.startswith("#"):
                page = Page(*(field.strip() for field in line.split("|")))
                if os.path.exists(page.path):
                    found[-1][1].append(page)
    named = {page.path for _, pages in found for page in pages} | LEFT_OUT
    for path in sorted(glob.glob("docs/*.md")):
        if path not in named:
            found[1][1].append(Page(path, title_of(path), ""))
    return [part for part in found if part[1]]


def cards():
    """The main page's list, in Markdown."""
    for name, pages in parts():
        yield f"## {name} {{#index-{label(name + '.md').replace(' ', '-')}}}"
        yield ""
        yield '<div class="cards">'
        yield ""
        for page in pages:
            yield f"- [{page.name}](@ref {label(page.path)}) {page.question}"
        yield ""
        yield "</div>"
        yield ""
