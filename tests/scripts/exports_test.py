# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "exports")
SOURCE = """
namespace jx {
struct Public { virtual ~Public(); void act(); };
Public::~Public() {}
void Public::act() {}
namespace detail { void help() {} }
bool operator==(const Public&, const Public&) { return true; }
}
extern "C" void jx_begin() {}
extern "C" void jx_end() {}
"""
NAMES = ["jx::Public", "jx::detail::help", "jx::operator==", "jx_begin", "jx_end"]


class Exports(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.library = os.path.join(cls.folder.name, "libpublic.so")
        subprocess.run([os.environ.get("CXX", "c++"), "-shared", "-fPIC", "-x", "c++", "-", "-o",
                        cls.library], input=SOURCE, text=True, check=True)
        cls.list = os.path.join(cls.folder.name, "list.txt")

    def run_with(self, lines, *options):
        with open(self.list, "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")
        result = subprocess.run([sys.executable, "-B", SCRIPT, *options, self.library, self.list],
                                stdout=subprocess.PIPE, text=True, check=False)
        return result.returncode, result.stdout

    def test_accepts_names_that_are_listed(self):
        self.assertEqual(self.run_with(["# why"] + NAMES), (0, "exports: 5 names, all listed\n"))

    def test_reports_exported_name_that_is_not_listed(self):
        status, output = self.run_with([name for name in NAMES if name != "jx::detail::help"])
        self.assertEqual(status, 1)
        self.assertIn("jx::detail::help: exported but not listed in", output)

    def test_reports_listed_name_that_is_not_exported(self):
        status, output = self.run_with(NAMES + ["jx::Gone"])
        self.assertEqual(status, 1)
        self.assertIn("jx::Gone: listed in", output)

    def test_star_matches_every_name_with_the_prefix(self):
        self.assertEqual(self.run_with(NAMES[:3] + ["jx_*"])[0], 0)

    def test_reports_star_without_a_match(self):
        status, output = self.run_with(NAMES + ["jx_gone_*"])
        self.assertEqual(status, 1)
        self.assertIn("jx_gone_*: listed in", output)

    def test_renew_keeps_comments_and_stars(self):
        self.assertEqual(self.run_with(["# why", "jx::Gone", "jx_*"], "--renew")[0], 0)
        with open(self.list, encoding="utf-8") as file:
            self.assertEqual(file.read().splitlines(), ["# why"] + NAMES[:3] + ["jx_*"])


if __name__ == "__main__":
    unittest.main()
