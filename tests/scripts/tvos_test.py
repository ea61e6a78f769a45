# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree

PROBES = "tvos: the probes are refused as they must be: 'path' is unavailable: introduced in tvOS"


class TvOS(faketree.FakeTreeTest):
    check = "tvos"

    def assert_refused(self, text, reason, path="jx/core/A.cpp"):
        status, output = self.findings({path: text})
        self.assertEqual(status, 1, output)
        self.assertIn(reason, output)
        self.assertIn(f"{path}:", output)

    def assert_accepted(self, text):
        status, output = self.findings({"jx/core/A.cpp": text})
        self.assertEqual(status, 0, output)
        self.assertTrue(output.startswith(PROBES), output)

    def test_sound_sources_pass_and_the_probes_are_told(self):
        self.assert_accepted("#include <string>\n#include <fcntl.h>\n"
                             "int a(int f) { return fcntl(f, F_FULLFSYNC); }\n")

    def test_what_came_with_a_later_system_is_refused(self):
        self.assert_refused("#include <filesystem>\nstd::filesystem::path a;\n",
                            "'path' is unavailable: introduced in tvOS 13.0")

    def test_a_header_that_only_linux_has_is_refused(self):
        self.assert_refused("#include <sys/random.h>\n", "'sys/random.h' file not found")

    def test_a_call_that_darwin_lacks_is_refused(self):
        self.assert_refused("#include <time.h>\nint a(timespec b) "
                            "{ return clock_nanosleep(CLOCK_REALTIME, 0, &b, &b); }\n",
                            "'clock_nanosleep' is unavailable: Darwin has none")

    def test_a_64_bit_integer_is_a_long_long(self):
        self.assert_refused("#include <cstdint>\n#include <cstddef>\nvoid a(std::uint64_t);\n"
                            "void a(std::int64_t);\nvoid b(std::size_t c) { a(c); }\n",
                            "call to 'a' is ambiguous")

    def test_what_only_linux_compiles_is_left_alone(self):
        status, output = self.findings({"jx/platform/linux/A.cpp": "#include <sys/random.h>\n"})
        self.assertEqual(status, 0, output)

    def test_a_public_header_that_no_source_includes_is_looked_at(self):
        self.assert_refused("#pragma once\n#include <sys/epoll.h>\n",
                            "'sys/epoll.h' file not found", "jx/core/A.h")


if __name__ == "__main__":
    unittest.main()
