#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests that the Swift overlay replaces exactly the members that the Objective-C headers hide from
Swift, those with two underscores in docs/swift-interface.txt.

    swift_overlay_test.py SOURCE_FOLDER"""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
CLASS = re.compile(r"^(?:class|extension) (\w+)[^{]*\{\n(.*?)^\}", re.DOTALL | re.MULTILINE)


def labels(arguments):
    return tuple(re.findall(r"(\w+): ", arguments))


def hidden(text):
    """Returns the members with two underscores of each class in the interface."""
    found = set()
    for name, body in CLASS.findall(text):
        found |= {(name, member) for member in re.findall(r"(?:var|func) (__\w+)", body)}
        found |= {(name, labels(arguments)) for arguments in re.findall(r"init\((__.*)\)", body)}
    return found


def used(text):
    """Returns the members with two underscores that each extension of the overlay uses."""
    found = set()
    for name, body in CLASS.findall(text):
        calls = re.findall(r"self\.init\((\s*__.*?)\)\n  \}", body, re.DOTALL)
        found |= {(name, labels(arguments)) for arguments in calls}
        rest = re.sub(r"self\.init\(.*?\)\n  \}", "", body, flags=re.DOTALL)
        found |= {(name, member) for member in re.findall(r"\b__\w+", rest)}
    return found


class SwiftOverlay(unittest.TestCase):
    def setUp(self):
        self.interface = (ROOT / "docs/swift-interface.txt").read_text(encoding="utf-8")
        self.overlay = "\n".join(path.read_text(encoding="utf-8") for path in
                                 sorted((ROOT / "swift/JXServerSide").glob("*.swift")))

    def test_replaces_exactly_the_hidden_members(self):
        expected = hidden(self.interface)
        self.assertIn(("JXPurchaseEvent", "__revenue"), expected)
        self.assertIn(("JXECommerceEvent", "__setItems"), expected)
        self.assertIn(("JXProduct", ("__productId", "name", "price")), expected)
        self.assertEqual(used(self.overlay), expected)

    def test_initialisers_have_the_labels_of_objective_c(self):
        declared = {(name, labels(re.sub(r"\s+", " ", arguments)))
                    for name, body in CLASS.findall(self.overlay)
                    for arguments in re.findall(r"convenience init\((.*?)\n  \)", body, re.DOTALL)}
        expected = {(name, tuple(label.removeprefix("__") for label in member))
                    for name, member in hidden(self.interface) if isinstance(member, tuple)}
        self.assertEqual(declared, expected)

    def test_amounts_are_decimals_and_lists_have_elements(self):
        classes = dict(CLASS.findall(self.overlay))
        self.assertIn("public var revenue: Decimal? {", classes["JXPurchaseEvent"])
        self.assertIn("public var items: [JXItem] {", classes["JXECommerceEvent"])
        self.assertIn("public var categories: [String] {", classes["JXProduct"])
        self.assertNotIn("NSMutableArray", self.overlay)


if __name__ == "__main__":
    unittest.main()
