#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests how scripts/docs documents Objective-C headers, each on a small tree.

objc_headers_test.py ROOT     the root of the tree whose scripts are tested
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
CORE = """// A licence.

namespace jx {

/// The main class.
class ServerSide {
public:
  /// Sends an event.
  void execute();
};

}  // namespace jx
"""
HEADER = """// A licence.
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// Specifies whether events are sent.
typedef NS_ENUM(int32_t, EJXState) {
  /// They are.
  EJXState_ENABLED JX_SWIFT_NAME("enabled") = 0,
};
/// The string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXState_toString[1];
/// @name Keys
/// @{
JX_OBJC_EXTERN NSString* const
    JXE_EVENT;  ///< "event_name"
/// @}

/// The main class. It sends events.
JX_OBJC_CLASS
@interface ServerSide : NSObject {
 @private
  void* _core[2];  // The C++ object.
}

/// Creates an object.
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey
    JX_SWIFT_NAME("init(siteID:sourceKey:)");
/// Unavailable, because an object needs a site ID.
- (instancetype)init JX_OBJC_UNAVAILABLE;
/// Sends an event.
- (void)execute:(nullable id)event;
/// The revenue.
@property(nonatomic, copy, nullable) NSDecimalNumber* revenue JX_REFINED_FOR_SWIFT;
/// Replaces the revenue.
- (void)setRevenue:(nullable NSDecimalNumber*)revenue JX_REFINED_FOR_SWIFT;
/// Waits.
- (BOOL)flush:(NSTimeInterval)seconds JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
"""
OVERLAY = """extension ServerSide {
  public var revenue: Decimal? {
    get { __revenue?.decimalValue }
  }
  public func flush(_ seconds: TimeInterval) async -> Bool {
  }
}
"""
FOR_DOXYGEN = """// A licence.
#import "JXObjectiveC.h"
/** @file */


/// Specifies whether events are sent.
enum EJXState : int32_t {
  /// They are.<br/>Swift: `enabled`
  EJXState_ENABLED = 0,
};
/// The string of each value.
extern NSString* const EJXState_toString[1];
/// @name Keys
/// @{
extern NSString* const
    JXE_EVENT;  /**< @brief The string `event_name`. */
/// @}

/// The main class. It sends events.

@interface ServerSide : NSObject {
 @private
  void* _core[2];  // The C++ object.
}

/// Creates an object.<br/>Swift: `init(siteID:sourceKey:)`
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey;



/// Sends an event.
- (void)execute:(nullable id)event;
/// The revenue.<br/>Swift: `var revenue: Decimal?`
@property(nonatomic, copy, nullable) NSDecimalNumber* revenue;
/// Replaces the revenue.<br/>Swift: `var revenue: Decimal?`
- (void)setRevenue:(nullable NSDecimalNumber*)revenue;
/// Waits.<br/>Swift: `func flush(_ seconds: TimeInterval) async -> Bool`
- (BOOL)flush:(NSTimeInterval)seconds;

@end


"""
FILES = {
    "docs/site/navigation.txt": "= Reference\ndocs/site/objc.md | Objective-C API | Classes.\n"
                                "docs/start.md | Start | The first event.\n",
    "docs/site/main.md": "# Main\n\n<!-- navigation -->\n",
    "docs/site/reference.md": "# C++ API\n",
    "docs/site/objc.md": "# Objective-C API\n\n<!-- Objective-C classes -->\n",
    "docs/start.md": "# Start\n",
    "docs/images/README": "The images of the pages.\n",
    "CONTRIBUTING.md": "# Contributing\n",
    "CHANGELOG.md": "# Changes\n",
    "SECURITY.md": "# Security\n",
    "CMakeLists.txt": "project(jxserverside VERSION 1.2.3)\n",
    "packaging/internal-headers.txt": "jx/objc/internal/\n",
    "jx/facade/ServerSide.h": CORE,
    "jx/objc/ServerSide.h": HEADER,
    "jx/objc/internal/JXHidden.h": "@interface JXHidden : NSObject\n- (void)hidden;\n@end\n",
    "swift/JXServerSide/Base.swift": OVERLAY,
}


class ObjectiveCHeaders(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        shutil.copytree(ROOT / "docs/site", self.root / "docs/site")
        (self.root / "scripts").mkdir()
        shutil.copy(ROOT / "scripts/docs", self.root / "scripts/docs")
        for name, content in FILES.items():
            self.write(name, content)

    def write(self, name, content):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(content, encoding="utf-8")

    def read(self, name):
        return (self.root / name).read_text(encoding="utf-8")

    def run_in_tree(self, *command):
        return subprocess.run(command, cwd=self.root, capture_output=True, text=True, check=False)

    def test_a_header_for_doxygen_has_swift_names_and_no_macros_on_the_same_lines(self):
        result = self.run_in_tree(sys.executable, "-B", "docs/site/objc.py", "copies")
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))
        self.assertEqual(FOR_DOXYGEN, self.read("copies/ServerSide.h"))

    def test_each_language_has_its_page_of_a_class(self):
        result = self.run_in_tree("scripts/docs")
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        page = self.read("build/docs/html/objc/interfaceServerSide.html")
        self.assertIn('data-name="initWithSiteID:andSourceKey:"', page)
        self.assertIn("<code>init(siteID:sourceKey:)</code>", page)
        core = self.read("build/docs/html/classjx_1_1ServerSide.html")
        self.assertIn("<b>execute</b>()", core)
        self.assertNotIn("initWithSiteID:", core)
        pages = {path.name for path in (self.root / "build/docs/html/objc").iterdir()}
        self.assertEqual({"interfaceServerSide.html", "ServerSide_8h.html"}, pages)

    def test_the_table_lists_classes_and_enumerations_with_their_first_sentences(self):
        self.assertEqual(0, self.run_in_tree("scripts/docs").returncode)
        page = self.read("build/docs/html/objc.html")
        self.assertIn('<a href="objc/interfaceServerSide.html">ServerSide</a>', page)
        self.assertIn(">The main class.   </td>", page)
        self.assertIn('<a href="objc/ServerSide_8h.html">EJXState</a>', page)

    def assert_rejected(self, header, message):
        self.write("jx/objc/ServerSide.h", header)
        result = self.run_in_tree("scripts/docs")
        self.assertEqual(1, result.returncode)
        self.assertIn(message, result.stderr)

    def test_rejects_a_method_without_comment(self):
        self.assert_rejected(HEADER.replace("/// Sends an event.\n", ""),
                             "Member execute:(nullable id event) (function) of class ServerSide "
                             "is not documented")

    def test_rejects_a_property_without_comment(self):
        self.assert_rejected(HEADER.replace("/// The revenue.\n", ""),
                             "Member revenue (property) of class ServerSide is not documented")

    def test_rejects_a_constant_without_comment(self):
        self.assert_rejected(HEADER.replace('  ///< "event_name"', ""),
                             "Member JXE_EVENT (variable) of file ServerSide.h is not documented")

    def test_rejects_an_enumerator_without_comment(self):
        self.assert_rejected(HEADER.replace("  /// They are.\n", ""),
                             "docs: jx/objc/ServerSide.h: EJXState_ENABLED is not documented\n")


if __name__ == "__main__":
    unittest.main()
