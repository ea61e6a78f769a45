#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The pages of the site and their order, read from navigation.txt.

Run as a program at the root of the tree, prints each error of navigation.txt and exits with 1 if
there is one.
"""

import glob
import os
import sys
from collections import namedtuple

Page = namedtuple("Page", "path name description")

NAVIGATION = "docs/site/navigation.txt"
MAIN = "docs/site/main.md"
# Overviews for readers of the repository. The site has its own main page instead.
LEFT_OUT = {"README.md", "docs/README.md"}
# Labels that the file name does not yield: docs/security.md has the label "security".
LABELS = {MAIN: "index", "SECURITY.md": "security-policy"}


def label(path):
    """Returns Doxygen's label of a page, which is also the name of its HTML file."""
    return LABELS.get(path) or os.path.basename(path)[:-3].lower()


def parts():
    """Returns [(name of the part, [Page])]. Raises ValueError for a malformed line."""
    found = []
    with open(NAVIGATION, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            line = line.strip()
            if line.startswith("= "):
                found.append((line[2:], []))
            elif line and not line.startswith("#"):
                fields = [field.strip() for field in line.split("|")]
                if len(fields) != 3 or not all(fields) or not found:
                    raise ValueError(f"{NAVIGATION}:{number}: expected PAGE | NAME | DESCRIPTION "
                                     'below a line "= PART"')
                found[-1][1].append(Page(*fields))
    return found


def errors():
    """Yields an error message for each page that is missing, listed twice or not listed."""
    labels = {}
    paths = [page.path for _, pages in parts() for page in pages]
    for path in paths:
        if not os.path.exists(path):
            yield f"{NAVIGATION}: {path} does not exist"
        if label(path) in labels:
            yield f"{NAVIGATION}: {path} has the same label as {labels[label(path)]}"
        labels[label(path)] = path
    for path in sorted(glob.glob("docs/*.md")):
        if path not in paths and path not in LEFT_OUT:
            yield f"{path} is not listed in {NAVIGATION}"


def cards():
    """Yields the main page's list of pages, as lines of Markdown."""
    for name, pages in parts():
        yield f"## {name} {{#index-{label(name + '.md').replace(' ', '-')}}}"
        yield ""
        yield '<div class="cards">'
        yield ""
        for page in pages:
            yield f"- [{page.name}](@ref {label(page.path)}) {page.description}"
        yield ""
        yield "</div>"
        yield ""


def main():
    try:
        found = list(errors())
    except ValueError as error:
        found = [str(error)]
    for error in found:
        print(f"docs: {error}", file=sys.stderr)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
