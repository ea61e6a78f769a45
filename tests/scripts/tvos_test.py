# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree

PROBES = "tvos: the probes are rejected as expected: 'path' is unavailable: introduced in tvOS"


class TvOS(faketree.FakeTreeTest):
    check = "tvos"

    def assert_rejected(self, text, reason, path="jx/core/A.cpp"):
        status, output = self.findings({path: text})
        self.assertEqual(status, 1, output)
        self.assertIn(reason, output)
        self.assertIn(f"{path}:", output)

    def assert_accepted(self, text):
        status, output = self.findings({"jx/core/A.cpp": text})
        self.assertEqual(status, 0, output)
        self.assertTrue(output.startswith(PROBES), output)

    def test_accepts_valid_sources_and_reports_the_probes(self):
        self.assert_accepted("#include <string>\n#include <fcntl.h>\n"
                             "int a(int f) { return fcntl(f, F_FULLFSYNC); }\n")

    def test_rejects_features_of_a_later_system(self):
        self.assert_rejected("#include <filesystem>\nstd::filesystem::path a;\n",
                            "'path' is unavailable: introduced in tvOS 13.0")

    def test_rejects_linux_only_headers(self):
        self.assert_rejected("#include <sys/random.h>\n", "'sys/random.h' file not found")

    def test_rejects_functions_missing_on_darwin(self):
        self.assert_rejected("#include <time.h>\nint a(timespec b) "
                            "{ return clock_nanosleep(CLOCK_REALTIME, 0, &b, &b); }\n",
                            "'clock_nanosleep' is unavailable: not available on Darwin")

    def test_64_bit_integer_is_a_long_long(self):
        self.assert_rejected("#include <cstdint>\n#include <cstddef>\nvoid a(std::uint64_t);\n"
                            "void a(std::int64_t);\nvoid b(std::size_t c) { a(c); }\n",
                            "call to 'a' is ambiguous")

    def test_ignores_linux_only_sources(self):
        status, output = self.findings({"jx/platform/linux/A.cpp": "#include <sys/random.h>\n"})
        self.assertEqual(status, 0, output)

    def test_checks_public_headers_that_no_source_includes(self):
        self.assert_rejected("#pragma once\n#include <sys/epoll.h>\n",
                            "'sys/epoll.h' file not found", "jx/core/A.h")

    def test_objective_c_header_annotates_every_pointer(self):
        self.assert_rejected("#import <Foundation/Foundation.h>\n@interface A : NSObject\n"
                             "- (nullable NSString*)b:(NSString*)c;\n@end\n",
                             "pointer is missing a nullability type specifier", "jx/objc/A.h")

    def test_objective_c_header_includes_what_it_uses(self):
        self.assert_rejected("@interface A : NSObject\n@end\n",
                             "cannot find interface declaration for 'NSObject'", "jx/objc/A.h")

    def test_objective_c_header_compiles_in_both_languages(self):
        self.assert_rejected("#import <Foundation/Foundation.h>\nnamespace a {}\n",
                             "unknown type name 'namespace'", "jx/objc/A.h")

    def test_objective_c_sources_compile_with_automatic_reference_counting(self):
        self.assert_rejected("#import <Foundation/Foundation.h>\nvoid a(NSString* b);\n"
                             "void a(NSString* b) { [b release]; }\n",
                             "ARC forbids explicit message send of 'release'", "jx/objc/A.mm")

    def test_objective_c_sources_compile_without_automatic_reference_counting(self):
        self.assert_rejected("#import <Foundation/Foundation.h>\n#if !__has_feature(objc_arc)\n"
                             "#error retained\n#endif\n", "retained", "jx/objc/A.m")

    def test_examples_compile_with_the_module_and_automatic_reference_counting(self):
        path = "examples/tvos-objc/A.m"
        self.assert_rejected("@import JXServerSideObjC;\nvoid a(JXEvent* b);\n"
                             "void a(JXEvent* b) { b.nothing = nil; }\n",
                             "property 'nothing' not found on object of type 'JXEvent *'", path)
        self.assert_rejected("#import <Foundation/Foundation.h>\nvoid a(NSString* b);\n"
                             "void a(NSString* b) { [b release]; }\n",
                             "ARC forbids explicit message send of 'release'", path)

    def test_examples_that_mention_arc_compile_without_it(self):
        self.assert_rejected("#if !__has_feature(objc_arc)\n#error retained\n#endif\n", "retained",
                             "examples/tvos/A.m")


if __name__ == "__main__":
    unittest.main()
