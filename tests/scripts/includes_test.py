# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import unittest

import faketree

# One header in each folder, so that every direction can be tested.
HEADERS = {path: "#pragma once\n" for path in (
    "jx/JXServerSide.h", "jx/platform/P.h", "jx/core/C.h", "jx/core/json/J.h",
    "jx/session/S.h", "jx/catalogue/K.h", "jx/events/E.h", "jx/events/ecommerce/M.h",
    "jx/facade/F.h", "jx/c/I.h", "tools/jx/T.h", "tests/support/S.h",
    "bench/B.h", "examples/minimal/M.h", "examples/shop/N.h", "examples/tvos/V.h")}


def tree(path, *lines):
    return {**HEADERS, path: "".join(line + "\n" for line in lines)}


class Includes(faketree.FakeTreeTest):
    check = "includes"

    def assert_allowed(self, path, *targets):
        self.assert_clean(tree(path, *(f"#include {target}" for target in targets)))

    def assert_rejected(self, path, *targets):
        """Asserts that each of the includes is reported on its line."""
        self.assert_found(tree(path, "", *(f"#include {target}" for target in targets)),
                          *(f"{path}:{line}: {target}: " for line, target in enumerate(targets, 2)))

    def test_accepts_includes_of_the_same_and_lower_layers(self):
        self.assert_allowed("jx/platform/A.h", '"jx/platform/P.h"')
        self.assert_allowed("jx/core/json/A.h", '"jx/core/C.h"', '"jx/platform/P.h"')
        self.assert_allowed("jx/catalogue/A.h", '"jx/core/json/J.h"', '"jx/platform/P.h"')
        self.assert_allowed("jx/session/A.h", '"jx/catalogue/K.h"', '"jx/core/C.h"')
        self.assert_allowed("jx/events/video/A.h", '"jx/events/E.h"', '"jx/catalogue/K.h"')
        self.assert_allowed("jx/facade/A.h", '"jx/events/E.h"', '"jx/session/S.h"',
                            '"jx/catalogue/K.h"', '"jx/core/C.h"', '"jx/events/ecommerce/M.h"')

    def test_rejects_includes_of_higher_layers(self):
        self.assert_rejected("jx/platform/A.h", '"jx/core/C.h"', '"jx/facade/F.h"')
        self.assert_rejected("jx/core/json/A.cpp", '"jx/session/S.h"', '"jx/events/E.h"',
                            '"jx/catalogue/K.h"', '"jx/facade/F.h"')
        self.assert_rejected("jx/catalogue/A.h", '"jx/facade/F.h"', '"jx/session/S.h"',
                            '"jx/events/E.h"')
        self.assert_rejected("jx/session/A.h", '"jx/facade/F.h"')
        self.assert_rejected("jx/events/A.h", '"jx/facade/F.h"')

    def test_c_layer_is_above_the_facade(self):
        self.assert_allowed("jx/c/A.cpp", '"jx/facade/F.h"', '"jx/events/E.h"', '"jx/session/S.h"',
                            '"jx/catalogue/K.h"', '"jx/core/C.h"', '"jx/platform/P.h"')
        self.assert_rejected("jx/facade/A.cpp", '"jx/c/I.h"')
        self.assert_rejected("jx/core/A.h", '"jx/c/I.h"')

    def test_accepts_c_headers_only_in_public_c_headers(self):
        self.assert_allowed("jx/c/A.h", "<stdbool.h>", "<stddef.h>", "<stdint.h>")
        self.assert_rejected("jx/c/A.h", "<stdio.h>", "<unistd.h>")
        self.assert_rejected("jx/c/A.cpp", "<stdint.h>")
        self.assert_rejected("jx/facade/A.h", "<stdint.h>")

    def test_session_and_events_do_not_include_each_other(self):
        self.assert_rejected("jx/events/ecommerce/A.cpp", '"jx/session/S.h"')
        self.assert_rejected("jx/session/A.cpp", '"jx/events/E.h"', '"jx/events/ecommerce/M.h"')

    def test_umbrella_includes_all_layers_but_no_layer_includes_it(self):
        self.assert_clean(tree("jx/JXServerSide.h", '#include "jx/core/C.h"',
                               '#include "jx/events/ecommerce/M.h"', '#include "jx/facade/F.h"',
                               '#include "jx/platform/P.h"'))
        self.assert_rejected("jx/facade/A.cpp", '"jx/JXServerSide.h"')
        self.assert_allowed("tools/jx/A.cpp", '"jx/JXServerSide.h"')

    def test_rejects_folder_outside_the_layers(self):
        self.assert_rejected("jx/extras/A.h", '"jx/core/C.h"')

    def test_rejects_tools_and_tests_in_the_library(self):
        self.assert_rejected("jx/core/A.cpp", '"tools/jx/T.h"', '"tests/support/S.h"',
                            '"bench/B.h"')
        self.assert_rejected("tools/jx/A.cpp", '"tests/support/S.h"')
        self.assert_rejected("examples/minimal/main.cpp", '"tools/jx/T.h"')
        self.assert_allowed("tests/core/A.cpp", '"jx/core/C.h"', '"tools/jx/T.h"',
                            '"tests/support/S.h"')

    def test_requires_quotes_and_root_paths_for_own_headers(self):
        self.assert_rejected("jx/core/A.cpp", '"C.h"', '"../core/C.h"', '"json/J.h"',
                            "<jx/core/C.h>", '"jx/core/Missing.h"', '"stdio.h"')

    def test_example_includes_files_of_its_folder_without_a_path(self):
        self.assert_allowed("examples/minimal/main.cpp", '"M.h"', '"jx/JXServerSide.h"')
        self.assert_rejected("examples/minimal/main.cpp", '"N.h"', '"../shop/N.h"')
        self.assert_allowed("tests/examples/A.cpp", '"examples/minimal/M.h"')
        self.assert_rejected("tests/examples/A.cpp", '"M.h"')
        self.assert_rejected("tools/jx/A.cpp", '"examples/minimal/M.h"')

    def test_example_includes_files_of_the_example_that_it_shares(self):
        self.assert_allowed("examples/tvos-objc/A.m", '"V.h"')
        self.assert_rejected("examples/tvos-objc/A.m", '"M.h"')
        self.assert_rejected("examples/minimal/main.cpp", '"V.h"')

    def test_accepts_curl_and_rapidjson_only_in_sources_of_core_and_tools(self):
        libraries = ("<curl/curl.h>", "<rapidjson/writer.h>")
        for path in ("jx/core/transfer/A.cpp", "tools/jx/A.cpp", "bench/A.cpp",
                     "tests/support/A.h"):
            self.assert_allowed(path, *libraries)
        for path in ("jx/core/A.h", "tools/jx/A.h", "jx/facade/A.cpp", "jx/platform/A.cpp",
                     "jx/events/A.cpp", "examples/minimal/main.cpp"):
            self.assert_rejected(path, *libraries)

    def test_rejects_tool_libraries_in_the_library(self):
        libraries = ("<httplib.h>", "<openssl/ssl.h>", "<sqlite3.h>", "<CLI/CLI.hpp>")
        for path in ("tools/jx/A.h", "tests/support/A.cpp", "bench/A.cpp"):
            self.assert_allowed(path, *libraries)
        for path in ("jx/core/A.cpp", "jx/platform/linux/A.cpp", "examples/minimal/main.cpp"):
            self.assert_rejected(path, *libraries)

    def test_accepts_test_frameworks_only_in_tests_and_benchmarks(self):
        self.assert_allowed("tests/core/A.cpp", "<gtest/gtest.h>", "<gmock/gmock.h>")
        self.assert_rejected("tools/jx/A.cpp", "<gtest/gtest.h>", "<benchmark/benchmark.h>")
        self.assert_rejected("jx/core/A.h", "<gtest/gtest_prod.h>")
        self.assert_allowed("bench/A.cpp", "<benchmark/benchmark.h>")

    def test_accepts_system_headers_only_in_core_and_platform(self):
        self.assert_allowed("jx/core/storage/A.cpp", "<unistd.h>", "<sys/stat.h>",
                            "<nmmintrin.h>", "<arm_acle.h>")
        self.assert_allowed("jx/platform/linux/A.cpp", "<ifaddrs.h>", "<string>")
        self.assert_rejected("jx/events/A.cpp", "<unistd.h>", "<string.h>")
        self.assert_rejected("jx/core/A.cpp", "<boost/any.hpp>", "<span>")

    def test_accepts_apple_frameworks_only_in_the_apple_platform(self):
        self.assert_clean(tree("jx/platform/apple/A.mm", "#import <Foundation/Foundation.h>"))
        self.assert_found(tree("jx/facade/A.mm", "#import <Foundation/Foundation.h>"),
                          "jx/facade/A.mm:1: <Foundation/Foundation.h>: ")

    def test_rejects_features_missing_in_the_oldest_runtime(self):
        names = ("filesystem", "to_chars", "pmr", "format", "jthread", "latch", "barrier",
                 "counting_semaphore")
        lines = [f"auto x = std::{name}();" for name in names]
        self.assert_found(tree("jx/core/A.cpp", *lines),
                          *(f"jx/core/A.cpp:{line}: std::{name}: "
                            for line, name in enumerate(names, 1)))
        self.assert_clean(tree("tools/jx/A.cpp", *lines))
        self.assert_rejected("jx/core/A.cpp", "<filesystem>", "<format>", "<memory_resource>",
                            "<latch>", "<barrier>", "<semaphore>")

    def test_ignores_comments_and_strings(self):
        self.assert_clean(tree(
            "jx/core/A.cpp", '// #include "jx/facade/F.h"', "/*", '#include "jx/facade/F.h"',
            "std::filesystem */", 'auto a = "std::format"; auto b = R"(std::latch "quoted)";'))

    def test_reports_code_after_a_string_a_comment_or_a_digit_separator(self):
        for line in ('auto a = "//"; std::format("");', "/* x */ std::format();",
                     "f(10'000, std::format(), 20'000);", "f('\"', std::format(), '\"');"):
            with self.subTest(line=line):
                self.assert_found(tree("jx/core/A.cpp", line), "jx/core/A.cpp:1: std::format: ")

    def test_reports_each_error_with_its_line(self):
        self.assert_found(
            tree("jx/core/A.cpp", "/* two", "lines */", '#include "jx/facade/F.h"', "",
                 "# include <curl/curl.h>", '#  include "jx/events/E.h"'),
            'jx/core/A.cpp:3: "jx/facade/F.h"', 'jx/core/A.cpp:6: "jx/events/E.h"')


if __name__ == "__main__":
    unittest.main()
