#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Checks that each link of the site has an existing target, and that each page is linked.

site_links.py FOLDER      the folder with the pages of the site
"""

import html.parser
import json
import pathlib
import posixpath
import sys
import urllib.parse

ADDRESSES = {"a": "href", "link": "href", "img": "src", "script": "src", "object": "data"}


class Page(html.parser.HTMLParser):
    """The links and the anchors of a page."""

    def __init__(self, text):
        super().__init__()
        self.links, self.anchors = [], set()
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        for name in ("id", "name"):
            if attrs.get(name):
                self.anchors.add(attrs[name])
        address = attrs.get(ADDRESSES.get(tag, ""))
        if address:
            self.links.append(address)


def target_of(name, address):
    """Returns the file and the anchor of a link of the page `name`."""
    path, _, anchor = urllib.parse.unquote(address).partition("#")
    if path:
        name = posixpath.normpath(posixpath.join(posixpath.dirname(name), path))
    return name, anchor


def link_error(folder, pages, name, address):
    """Returns why the link is broken, or None if its target exists."""
    if address.startswith(("http://", "https://", "data:", "mailto:")):
        return None
    path, anchor = target_of(name, address)
    if not (folder / path).is_file():
        return "the file does not exist"
    if anchor and path in pages and anchor not in pages[path].anchors:
        return "the page has no such anchor"
    return None


def main():
    folder = pathlib.Path(sys.argv[1])
    pages = {path.relative_to(folder).as_posix(): Page(path.read_text(encoding="utf-8"))
             for path in folder.rglob("*.html")}
    errors, links, reached = [], 0, {"index.html"}
    for name, page in sorted(pages.items()):
        for address in page.links:
            links += 1
            error = link_error(folder, pages, name, address)
            if target_of(name, address)[0] != name:
                reached.add(target_of(name, address)[0])
            if error:
                errors.append(f"{name}: {address}: {error}")
    index = (folder / "search-index.js").read_text(encoding="utf-8")
    entries = json.loads(index.removeprefix("window.jxIndex = ").rstrip(";\n"))
    for title, _, address, _ in entries:
        error = link_error(folder, pages, "", address)
        if error:
            errors.append(f"search: {title}: {address}: {error}")
    errors += [f"{name}: no page links here" for name in sorted(pages) if name not in reached]
    print("\n".join(errors))
    print(f"{len(pages)} pages, {links} links, {len(entries)} search entries")
    sys.exit(1 if errors or links < 1000 or len(entries) < 500 else 0)


if __name__ == "__main__":
    main()
