# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The classes that the public headers declare, by folder, for the C++ API page."""

import functools
import glob
import os
import re

INTERNAL = "packaging/internal-headers.txt"
# The folders of jx/ and their titles on the page.
AREAS = [
    ("jx/facade", "Sending events"),
    ("jx/events", "Events"),
    ("jx/events/ecommerce", "E-commerce events"),
    ("jx/events/engagement", "Engagement events"),
    ("jx/events/video", "Video events"),
    ("jx/session", "Predefined variables and context blocks"),
    ("jx/catalogue", "Catalogue"),
    ("jx/core", "Core"),
    ("jx/core/json", "Numbers and JSON"),
    ("jx/core/notifications", "Notifications"),
    ("jx/core/transfer", "Delivery"),
    ("jx/platform", "Platform"),
]
# The classes that an application uses first are listed first.
FIRST = ["ServerSide", "JXEvent", "JXCustomEvent", "JXItem", "JXProduct", "JXCoreConfiguration",
         "JXUser", "JXApplication", "JXNetworkManager", "JXDecimal", "JXString"]
DECLARATION = re.compile(
    r"((?:^///.*\n)+)(?:^template .*\n)?^(?:class|struct) (?:[A-Z_]+ )?(\w+)(?: final)?(?: :[^;{]*)? \{",
    re.MULTILINE)


def internal():
    """Returns the patterns of the headers that are not installed."""
    with open(INTERNAL, encoding="utf-8") as file:
        return [line.strip() for line in file if line.strip() and not line.startswith("#")]


def is_public(header):
    return not any(header == name or (name.endswith("/") and header.startswith(name))
                   for name in internal())


def classes(header):
    """Returns [(name, first sentence of its comment)] of the classes in a header."""
    with open(header, encoding="utf-8") as file:
        text = file.read()
    return [(name, first_sentence(comment)) for comment, name in DECLARATION.findall(text)]


def first_sentence(comment):
    words = " ".join(line[3:].strip() for line in comment.splitlines())
    return re.split(r"(?<=[.:])\s(?=[A-Z\"`])", words)[0].rstrip(":")


def declares(header, name):
    return any(name == one for one, _ in classes(header))


@functools.lru_cache(maxsize=None)
def areas():
    """Returns [(title, [(name, sentence)])], most used classes first."""
    found = []
    for folder, title in AREAS:
        named = [one for header in sorted(glob.glob(folder + "/*.h")) if is_public(header)
                 for one in classes(header)]
        if named:
            rank = {name: at for at, name in enumerate(FIRST)}
            found.append((title, sorted(named, key=lambda one: rank.get(one[0], len(FIRST)))))
    return found


def anchor(title):
    return "reference-" + title.lower().replace(" ", "-")


def tables():
    """Yields the page's tables, as lines of Markdown."""
    for title, named in areas():
        yield f"## {title} {{#{anchor(title)}}}"
        yield ""
        yield "| class | description |"
        yield "|---|---|"
        for name, sentence in named:
            yield f"| [{name}](@ref jx::{name}) | {sentence} |"
        yield ""
