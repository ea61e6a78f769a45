# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Creates small source trees in temporary folders, for the tests of the checks."""

import contextlib
import io
import os
import runpy
import sys
import tempfile
import unittest
from unittest import mock

CHECKS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "checks")


class FakeTreeTest(unittest.TestCase):
    """Runs the check named `check` on trees that a test defines as {path: text}."""

    check = ""

    def findings(self, tree):
        """Returns (exit status, output of the check) for a tree."""
        with tempfile.TemporaryDirectory() as root:
            for path, text in tree.items():
                full = os.path.join(root, path)
                os.makedirs(os.path.dirname(full), exist_ok=True)
                with open(full, "w", encoding="utf-8") as file:
                    file.write(text)
            return self._run(root)

    def _run(self, root):
        # In this process: starting an interpreter for each tree would take most of the time.
        output = io.StringIO()
        script = os.path.join(CHECKS, self.check)
        with mock.patch.object(sys, "argv", [script, "--root", root]), \
                contextlib.redirect_stdout(output), self.assertRaises(SystemExit) as ended:
            runpy.run_path(script, run_name="__main__")
        return ended.exception.code, output.getvalue()

    def assert_clean(self, tree):
        self.assertEqual(self.findings(tree), (0, ""))

    def assert_found(self, tree, *expected):
        """Asserts that each output line starts with the item of `expected` at its position."""
        status, output = self.findings(tree)
        lines = output.splitlines()
        self.assertEqual(len(lines), len(expected), output)
        for line, start in zip(lines, expected):
            self.assertTrue(line.startswith(start), f"{line!r} does not start with {start!r}")
        self.assertEqual(status, 1)
