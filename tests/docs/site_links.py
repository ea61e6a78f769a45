#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Each link of the site leads to a page or a place that exists, and each page can be reached.

site_links.py FOLDER      the folder of the site's pages
"""

import html.parser
import json
import pathlib
import sys
import urllib.parse

ADDRESSES = {"a": "href", "link": "href", "img": "src", "script": "src", "object": "data"}


class Page(html.parser.HTMLParser):
    """What a page links to, and which places it has."""

    def __init__(self, text):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        for name in ("id", "name"):
            if attrs.get(name):
                self.places.add(attrs[name])
        address = attrs.get(ADDRESSES.get(tag, ""))
        if address:
            self.links.append(address)


def fault(folder, pages, name, address):
    """Why the link leads nowhere; None when it leads somewhere."""
    if address.startswith(("http://", "https://", "data:", "mailto:")):
        return None
    path, _, place = urllib.parse.unquote(address).partition("#")
    path = path or name
    if not (folder / path).is_file():
        return "there is no such file"
    if place and path in pages and place not in pages[path].places:
        return "the page has no such place"
    return None


def main():
    folder = pathlib.Path(sys.argv[1])
    pages = {path.name: Page(path.read_text(encoding="utf-8")) for path in folder.glob("*.html")}
    faults, links, reached = [], 0, {"index.html"}
    for name, page in sorted(pages.items()):
        for address in page.links:
            links += 1
            why = fault(folder, pages, name, address)
            reached.add(address.partition("#")[0])
            if why:
                faults.append(f"{name}: {address}: {why}")
    index = (folder / "search-index.js").read_text(encoding="utf-8")
    entries = json.loads(index.removeprefix("window.jxIndex = ").rstrip(";\n"))
    for title, _, address, _ in entries:
        why = fault(folder, pages, "", address)
        if why:
            faults.append(f"search: {title}: {address}: {why}")
    faults += [f"{name}: no page leads here" for name in sorted(pages) if name not in reached]
    print("\n".join(faults))
    print(f"{len(pages)} pages, {links} links, {len(entries)} entries of the search")
    sys.exit(1 if faults or links < 1000 or len(entries) < 500 else 0)


if __name__ == "__main__":
    main()
