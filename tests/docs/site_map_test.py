#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests the checks of docs/site/navigation.txt, each on a small tree.

site_map_test.py ROOT     the root of the tree whose scripts are tested
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
NAVIGATION = """# A comment.
= Guides
docs/start.md | Quick start | The first event.
docs/security.md | Security | TLS and file permissions.
= Releases
SECURITY.md | Security policy | Reporting a vulnerability.
"""
PAGES = ("docs/start.md", "docs/security.md", "docs/README.md", "SECURITY.md", "README.md")


class Navigation(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name in ("scripts/docs", "docs/site/site_map.py"):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, self.root / name)
        for page in PAGES:
            (self.root / page).write_text("# A page\n", encoding="utf-8")
        self.write(NAVIGATION)

    def write(self, navigation):
        (self.root / "docs/site/navigation.txt").write_text(navigation, encoding="utf-8")

    def run_in_tree(self, *command):
        return subprocess.run(command, cwd=self.root, capture_output=True, text=True, check=False)

    def assert_rejected(self, message):
        """Both the check alone and scripts/docs exit with 1 and print exactly `message`."""
        for command in ((sys.executable, "-B", "docs/site/site_map.py"), ("scripts/docs",)):
            result = self.run_in_tree(*command)
            self.assertEqual((1, f"docs: {message}\n"), (result.returncode, result.stderr), command)

    def test_accepts_a_tree_whose_pages_are_all_listed(self):
        result = self.run_in_tree(sys.executable, "-B", "docs/site/site_map.py")
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))

    def test_rejects_a_listed_page_that_does_not_exist(self):
        (self.root / "docs/start.md").unlink()
        self.assert_rejected("docs/site/navigation.txt: docs/start.md does not exist")

    def test_rejects_a_page_that_is_not_listed(self):
        (self.root / "docs/faq.md").write_text("# FAQ\n", encoding="utf-8")
        self.assert_rejected("docs/faq.md is not listed in docs/site/navigation.txt")

    def test_rejects_a_page_that_is_listed_twice(self):
        self.write(NAVIGATION + "docs/start.md | Start | The same page.\n")
        self.assert_rejected(
            "docs/site/navigation.txt: docs/start.md has the same label as docs/start.md")

    def test_rejects_a_line_without_description(self):
        self.write(NAVIGATION + "docs/start.md | Start\n")
        self.assert_rejected("docs/site/navigation.txt:7: expected PAGE | NAME | DESCRIPTION "
                             'below a line "= PART"')

    def test_rejects_a_page_before_the_first_part(self):
        self.write("docs/start.md | Start | The first event.\n" + NAVIGATION)
        self.assert_rejected("docs/site/navigation.txt:1: expected PAGE | NAME | DESCRIPTION "
                             'below a line "= PART"')


if __name__ == "__main__":
    unittest.main()
