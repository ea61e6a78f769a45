#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests scripts/swift-interface on small headers, and that docs/swift-interface.txt is up to date.

    swift_interface_test.py SOURCE_FOLDER"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
SCRIPT = ROOT / "scripts/swift-interface"
START = ("#import <Foundation/Foundation.h>\n"
         "#define JX_REFINED_FOR_SWIFT __attribute__((swift_private))\n")


def run(root, *arguments):
    return subprocess.run([sys.executable, "-B", SCRIPT, "--root", root, *arguments],
                          capture_output=True, text=True, check=False)


class SwiftInterface(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "jx/objc").mkdir(parents=True)

    def write(self, declarations):
        (self.root / "jx/objc/JXServerSide.h").write_text(START + declarations, encoding="utf-8")

    def listed(self, declarations):
        """Returns the lines for a header, without the heading and the header's name."""
        self.write(declarations)
        result = run(self.root)
        self.assertEqual(result.returncode, 0, result.stderr)
        text = (self.root / "docs/swift-interface.txt").read_text(encoding="utf-8")
        return text.partition("// JXServerSide.h\n")[2].splitlines()

    def error(self, declarations):
        self.write(declarations)
        result = run(self.root)
        self.assertEqual(result.returncode, 1)
        self.assertFalse((self.root / "docs").exists())
        return result.stderr

    def test_file_is_up_to_date(self):
        result = run(ROOT, "--check")
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_finds_a_file_that_is_out_of_date(self):
        self.listed("@interface A : NSObject\n@end\n")
        self.assertEqual(run(self.root, "--check").returncode, 0)
        self.write("@interface B : NSObject\n@end\n")
        result = run(self.root, "--check")
        self.assertEqual(result.returncode, 1)
        self.assertIn("out of date", result.stderr)

    def test_lists_members_with_nullability(self):
        self.assertEqual(self.listed("""
@interface A : NSObject
- (nullable NSString*)name:(nonnull NSArray<NSString*>*)parts;
+ (BOOL)isReady;
@property(nullable) NSDecimalNumber* amount JX_REFINED_FOR_SWIFT;
@property(nonnull, readonly) NSMutableArray<NSString*>* parts JX_REFINED_FOR_SWIFT;
- (nonnull instancetype)initWithKey:(nullable id)key value:(int32_t)value;
- (nonnull instancetype)init __attribute__((unavailable));
@end
"""), ["class A: NSObject {", "  func name(_: [String]) -> String?",
       "  class func isReady() -> Bool", "  var __amount: NSDecimalNumber? { get set }",
       "  var __parts: NSMutableArray { get }", "  init(key: Any?, value: Int32)", "}"])

    def test_uses_swift_names(self):
        self.assertEqual(self.listed("""
@protocol P
- (void)addData:(nonnull id)key withValue:(nonnull id)value
    __attribute__((swift_name("add(_:value:)")));
@end
typedef NS_ENUM(int32_t, E) { E_ONE __attribute__((swift_name("one"))) = 0 };
extern NSString* const _Nonnull kKey;
"""), ["protocol P {", "  func add(_: Any, value: Any)", "}", "enum E: Int32 {",
       "  case one  // E_ONE", "}", "let kKey: String"])

    def test_lists_a_class_once(self):
        self.assertEqual(self.listed("""
@class A;
@protocol P;
@interface A : NSObject
@end
@class A;
@protocol P
@end
"""), ["class A: NSObject {", "}", "protocol P {", "}"])

    def test_rejects_pointers_without_nullability(self):
        for member in ("- (NSString*)a;", "- (void)a:(id)b;", "@property NSString* a;",
                       "- (void)a:(void (^)(void))b;"):
            with self.subTest(member):
                self.assertIn("no nullability",
                              self.error(f"@interface A : NSObject\n{member}\n@end\n"))

    def test_rejects_constants_without_nullability(self):
        self.assertIn("kKey: NSString *: the pointer has no nullability",
                      self.error("extern NSString* const kKey;\n"))

    def test_rejects_enumerators_without_a_swift_name(self):
        self.assertIn("E_ONE: the enumerator has no Swift name",
                      self.error("typedef NS_ENUM(int32_t, E) { E_ONE = 0 };\n"))

    def test_rejects_swift_names_with_other_parameters(self):
        self.assertIn("too few parameters in the signature", self.error("""
@interface A : NSObject
- (void)a:(int32_t)b c:(int32_t)d __attribute__((swift_name("a(b:)")));
@end
"""))


if __name__ == "__main__":
    unittest.main()
