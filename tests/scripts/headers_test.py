# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree

GOOD = "#pragma once\n#include <string>\ninline std::string a() { return {}; }\n"
LIST = "packaging/internal-headers.txt"


class Headers(faketree.FakeTreeTest):
    check = "headers"

    def test_accepts_self_contained_headers(self):
        self.assert_clean({"jx/core/A.h": GOOD,
                           "jx/core/B.h": '#pragma once\n#include "jx/core/A.h"\n'})

    def test_reports_header_with_a_missing_include(self):
        status, output = self.findings({"jx/core/A.h": "#pragma once\nstd::string a();\n"})
        self.assertEqual(status, 1)
        self.assertIn("jx/core/A.h:2:", output)

    def test_reports_warning_in_a_header(self):
        text = "#pragma once\ninline int a(unsigned b) { return b < -1 ? 1 : 0; }\n"
        status, output = self.findings({"jx/core/A.h": text})
        self.assertEqual(status, 1)
        self.assertIn("jx/core/A.h:2:", output)

    def test_reports_header_that_needs_a_newer_standard(self):
        text = "#pragma once\ninline auto a = []<typename T>(T b) { return b; };\n"
        status, output = self.findings({"jx/core/A.h": text})
        self.assertEqual(status, 1)
        self.assertIn("jx/core/A.h:2:", output)

    def test_ignores_internal_headers_and_headers_of_tools(self):
        self.assert_clean({"jx/core/A.h": GOOD, "jx/core/storage/B.h": "broken\n",
                           "jx/core/C.h": "broken\n", "tools/jx/D.h": "broken\n",
                           LIST: "# why\njx/core/storage/\njx/core/C.h\n"})

    def test_reports_public_header_that_includes_an_internal_one(self):
        self.assert_found({"jx/core/A.h": '#pragma once\n#include "jx/core/storage/B.h"\n',
                           "jx/core/storage/B.h": "#pragma once\n", LIST: "jx/core/storage/\n"},
                          'jx/core/A.h:2: "jx/core/storage/B.h": public headers must not include')

    def test_reports_public_class_that_is_not_exported(self):
        self.assert_found({"jx/core/A.h": "#pragma once\n\nclass A final {\n};\n"},
                          "jx/core/A.h:3: A: public classes must be marked with JX_API")

    def test_accepts_marked_classes_templates_and_forward_declarations(self):
        text = ("#pragma once\n#define JX_API\nclass B;\nclass JX_API A {\n};\n"
                "template <typename T>\nstruct C {\n};\n")
        self.assert_clean({"jx/core/A.h": text})


if __name__ == "__main__":
    unittest.main()
