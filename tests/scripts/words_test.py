# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree

CPP = ("// Copyright 2026 The JXServerSide authors\n"
       "// SPDX-License-Identifier: Apache-2.0\n")
HASH = CPP.replace("//", "#")

# Spelt in pieces, so that this file is not a finding of its own.
NOTES = ("TO" "DO", "FIX" "ME", "XX" "X", "HA" "CK")
SWITCHED_OFF = ("DIS" "ABLED_", "GTEST_" "SKIP")


class Words(faketree.FakeTreeTest):
    check = "words"

    def test_sources_with_the_licence_lines_are_clean(self):
        self.assert_clean({
            "jx/core/A.cpp": CPP + "int a;\n", "jx/CMakeLists.txt": HASH, "cmake/A.cmake": HASH,
            "scripts/build": "#!/usr/bin/env bash\n" + HASH, "packaging/a.pc.in": HASH,
            "README.md": "# No licence lines\n", "data/words.txt": "none either\n"})

    def test_missing_licence_lines_are_found(self):
        for path, text in {
                "jx/core/A.cpp": "int a;\n", "jx/core/A.h": "", "tests/A.cpp": HASH[1:],
                "jx/CMakeLists.txt": "project(a)\n", "cmake/A.cmake": CPP.splitlines()[0] + "\n",
                "scripts/build": "#!/usr/bin/env bash\necho\n",
                "tools/page.js": "\n" + CPP}.items():
            with self.subTest(path=path):
                self.assert_found({path: text}, f"{path}:1: the two licence lines are missing")

    def test_notes_to_self_are_found(self):
        for note in NOTES:
            with self.subTest(note=note):
                self.assert_found({"jx/core/A.cpp": CPP + f"int a;\n// {note}: later\n"},
                                  f"jx/core/A.cpp:4: {note}: ")

    def test_words_that_only_contain_a_note_are_none(self):
        self.assert_clean({"scripts/a.sh": HASH + "mktemp -d /tmp/X" "XXXXX\n"})

    def test_switched_off_tests_are_found(self):
        for word in SWITCHED_OFF:
            with self.subTest(word=word):
                self.assert_found({"tests/A.cpp": CPP + f"TEST(A, {word}B)\n"},
                                  f"tests/A.cpp:3: {word}: ")


if __name__ == "__main__":
    unittest.main()
