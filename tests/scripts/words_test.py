# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree

CPP = ("// Copyright 2026 The JXServerSide authors\n"
       "// SPDX-License-Identifier: Apache-2.0\n")
HASH = CPP.replace("//", "#")

# Split, so that this file does not contain the words.
NOTES = ("TO" "DO", "FIX" "ME", "XX" "X", "HA" "CK")
DISABLED = ("DIS" "ABLED_", "GTEST_" "SKIP")


class Words(faketree.FakeTreeTest):
    check = "words"

    def test_accepts_sources_with_the_licence_lines(self):
        self.assert_clean({
            "jx/core/A.cpp": CPP + "int a;\n", "jx/CMakeLists.txt": HASH, "cmake/A.cmake": HASH,
            "scripts/build": "#!/usr/bin/env bash\n" + HASH, "packaging/a.pc.in": HASH,
            "README.md": "# No licence lines\n", "data/words.txt": "none either\n"})

    def test_reports_missing_licence_lines(self):
        for path, text in {
                "jx/core/A.cpp": "int a;\n", "jx/core/A.h": "", "tests/A.cpp": HASH[1:],
                "jx/CMakeLists.txt": "project(a)\n", "cmake/A.cmake": CPP.splitlines()[0] + "\n",
                "scripts/build": "#!/usr/bin/env bash\necho\n",
                "tools/page.js": "\n" + CPP}.items():
            with self.subTest(path=path):
                self.assert_found({path: text}, f"{path}:1: the two licence lines are missing")

    def test_reports_task_notes(self):
        for note in NOTES:
            with self.subTest(note=note):
                self.assert_found({"jx/core/A.cpp": CPP + f"int a;\n// {note}: later\n"},
                                  f"jx/core/A.cpp:4: {note}: ")

    def test_ignores_words_that_contain_a_task_note(self):
        self.assert_clean({"scripts/a.sh": HASH + "mktemp -d /tmp/X" "XXXXX\n"})

    def test_reports_disabled_tests(self):
        for word in DISABLED:
            with self.subTest(word=word):
                self.assert_found({"tests/A.cpp": CPP + f"TEST(A, {word}B)\n"},
                                  f"tests/A.cpp:3: {word}: ")


if __name__ == "__main__":
    unittest.main()
