#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Doxygen's filter for Markdown pages: page.py PAGE prints the page for Doxygen.

Pages link to files and headings, as repository viewers expect. This filter gives each heading a
label and turns each link into a reference, so that Doxygen reports broken links. For a link to a
file that is not a page of the site, only the text is kept.
"""

import os
import re
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import headers  # noqa: E402
import objc  # noqa: E402
import site_map  # noqa: E402

HEADING = re.compile(r"^(#{1,6}) +(.*?) *#* *$")
LINK = re.compile(r"(?<!!)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^()\s]+)\)")
CODE_SPAN = re.compile(r"(`+[^`]*`+)")


def slug(heading):
    """Returns the anchor that repository viewers give to a heading."""
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
    return re.sub(r"[^\w\- ]", "", text).replace(" ", "-")


def reference(page, text, target):
    """Returns the link `target` of `page` in Doxygen's syntax."""
    if re.match(r"[a-z]+:", target) or target.startswith("@ref"):
        return f"[{text}]({target})"
    path, _, anchor = target.partition("#")
    other = page
    if path:
        other = os.path.normpath(os.path.join(os.path.dirname(page), path))
    if not os.path.exists(other):
        sys.exit(f"{page}: {other} does not exist")
    if other.endswith(".h") and other.startswith("jx/"):
        name = os.path.basename(other)[:-2]
        return f"[{text}](@ref jx::{name})" if headers.declares(other, name) else text
    if not other.endswith(".md") or other in site_map.LEFT_OUT:
        return text
    label = site_map.label(other)
    return f"[{text}](@ref {label}{'-' + anchor if anchor else ''})"


def outside_code(line, change):
    """Applies `change` to a line, except to its code spans. A link may contain a code span."""
    spans = []

    def hide(match):
        spans.append(match.group(1))
        return f"\x00{len(spans) - 1}\x00"

    line = change(CODE_SPAN.sub(hide, line))
    return re.sub("\x00(\\d+)\x00", lambda match: spans[int(match.group(1))], line)


def page_lines(page, text):
    label = site_map.label(page)
    seen = {}
    fence = None
    before = ""
    # Doxygen recognises a page's title only at the start of the file.
    for line in re.sub(r"\A(?:<!--.*?-->\s*)+", "", text, flags=re.DOTALL).split("\n"):
        mark = re.match(r"^\s*(```+)", line)
        if mark:
            fence = None if fence else mark.group(1)
            before = line
            yield re.sub(r"^(\s*```+)(text|sh|json|cmake|bash|diff|swift)$", r"\1{.\2}", line)
            continue
        if fence:
            yield line
            continue
        # Doxygen restarts the numbering of a list after a code block.
        if before.startswith("```"):
            line = re.sub(r"^(\d+\.) ", r"**\1** ", line)
        before = line or before
        if line.strip() == "<!-- navigation -->":
            yield from site_map.cards()
            continue
        if line.strip() == "<!-- classes -->":
            yield from headers.tables()
            continue
        if line.strip() == "<!-- Objective-C classes -->":
            yield from objc.tables()
            continue
        line = line.replace("<kbd>", "<code>").replace("</kbd>", "</code>")
        line = outside_code(line, lambda part: LINK.sub(
            lambda match: reference(page, match.group(1), match.group(2)), part))
        heading = HEADING.match(line)
        if heading:
            name = slug(heading.group(2))
            count = seen[name] = seen.get(name, 0) + 1
            anchor = f"{label}-{name}" + (f"-{count - 1}" if count > 1 else "")
            is_title = len(heading.group(1)) == 1
            if is_title and page == site_map.MAIN:
                yield line
                continue
            line = f"{line} {{#{label if is_title else anchor}}}"
        yield line


def main():
    page = os.path.relpath(sys.argv[1])
    with open(page, encoding="utf-8") as file:
        print("\n".join(page_lines(page, file.read())), end="")


if __name__ == "__main__":
    main()
