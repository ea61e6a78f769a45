# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree


class Sizes(faketree.FakeTreeTest):
    check = "sizes"

    def test_rejects_more_than_400_lines(self):
        self.assert_found({"jx/core/A.cpp": "int a;\n" * 401},
                          "jx/core/A.cpp:401: 401 lines, the limit is 400")
        self.assert_found({"tools/jx/A.h": "int a;\n" * 401}, "tools/jx/A.h:401: 401 lines")

    def test_prints_a_note_for_301_to_400_lines(self):
        for lines in (301, 400):
            status, output = self.findings({"jx/core/A.cpp": "int a;\n" * lines})
            self.assertEqual(status, 0)
            self.assertIn(f"jx/core/A.cpp:301: note: {lines} lines", output)

    def test_accepts_300_lines(self):
        self.assert_clean({"jx/core/A.cpp": "int a;\n" * 300})

    def test_ignores_the_length_of_generated_files(self):
        mark = "// Generated from x.toml by scripts/catalogue. Do not edit.\n#pragma once\n"
        self.assert_clean({"jx/c/A.h": mark + "int a;\n" * 500})
        self.assert_found({"jx/c/A.h": "#pragma once\n" + mark + "int a;\n" * 500},
                          "jx/c/A.h:401: 503 lines")

    def test_ignores_the_length_of_tests(self):
        self.assert_clean({"tests/core/A.cpp": "int a;\n" * 900})


if __name__ == "__main__":
    unittest.main()
