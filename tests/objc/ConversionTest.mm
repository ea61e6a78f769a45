// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXConversion.h"

#include <limits>

#include "jx/core/json/JXJsonArray.h"
#include "jx/core/json/JXJsonObject.h"
#import "tests/objc/ObjectiveCTest.h"

namespace jx::objc {
namespace {

constexpr char kPlace[] = "place";

class Conversion : public test::ObjectiveCTest {
 protected:
  // Piece by piece, because GNUstep accepts unpaired surrogates only in this way.
  static NSString* units(std::initializer_list<unichar> list) {
    NSMutableString* const string = [NSMutableString string];
    for (const unichar unit : list)
      [string appendFormat:@"%C", unit];
    return string;
  }
  static std::string digitsOf(NSNumber* number) { return toDecimal(number, kPlace)->toString(); }
};

TEST_F(Conversion, KeepsEveryCharacterOfAString) {
  EXPECT_EQ(toString(@"", kPlace), JXString(""));
  EXPECT_EQ(toString(units({'a', 0, 0xE9, 0x20AC}), kPlace),
            JXString(std::string_view("a\0\xC3\xA9\xE2\x82\xAC", 7)));
  EXPECT_EQ(toString(units({0xD83D, 0xDE00}), kPlace), JXString("\xF0\x9F\x98\x80"));
  EXPECT_EQ(toString(units({0xDBFF, 0xDFFF}), kPlace), JXString("\xF4\x8F\xBF\xBF"));
  // Unpaired surrogates: high, low, and in the wrong order.
  EXPECT_EQ(toString(units({0xD83D}), kPlace), JXString("\xED\xA0\xBD"));
  EXPECT_EQ(toString(units({0xDE00, 'x'}), kPlace), JXString("\xED\xB8\x80x"));
  EXPECT_EQ(toString(units({0xDE00, 0xD83D}), kPlace), JXString("\xED\xB8\x80\xED\xA0\xBD"));
}

TEST_F(Conversion, ReturnsEveryStringUnchanged) {
  for (NSString* const string :
       {@"", @"plain", units({'a', 0, 'b'}), units({0x7FF, 0x800, 0xFFFF}), units({0xD83D, 0xDE00}),
        units({0xD800}), units({0xDFFF, 'x'}), units({0xDC00, 0xD800})}) {
    EXPECT_TRUE([toFoundation(toString(string, kPlace)) isEqualToString:string]) << [string length];
  }
  EXPECT_EQ(toFoundation(JXString()), nil);
}

TEST_F(Conversion, ReplacesBytesThatAreNoCharacter) {
  const auto converted = [](const char* bytes) { return text(toFoundation(JXString(bytes))); };
  EXPECT_EQ(converted("a\xFFz"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(converted("\xC0\xAF"), "\xEF\xBF\xBD\xEF\xBF\xBD");  // overlong
  EXPECT_EQ(converted("\xE0\x80\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(converted("\xF4\x90\x80\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(converted("\xE2\x82"), "\xEF\xBF\xBD\xEF\xBF\xBD");  // incomplete
}

TEST_F(Conversion, KeepsNumbersExactly) {
  EXPECT_EQ(digitsOf(decimal(@"0.1")), "0.1");
  EXPECT_EQ(digitsOf(decimal(@"-12345678901234567890123456789012345678")),
            "-12345678901234567890123456789012345678");
  EXPECT_EQ(digitsOf(decimal(@"0.00000000000000000000000000000000000001")),
            "0.00000000000000000000000000000000000001");
  EXPECT_EQ(digitsOf(decimal(@"1e100")), "1" + std::string(100, '0'));
  EXPECT_EQ(digitsOf([NSNumber numberWithUnsignedLongLong:18446744073709551615ULL]),
            "18446744073709551615");
  EXPECT_EQ(digitsOf([NSNumber numberWithLongLong:std::numeric_limits<long long>::min()]),
            "-9223372036854775808");
  // The shortest decimal, not 0.1000000000000000055511151231257827.
  EXPECT_EQ(digitsOf([NSNumber numberWithDouble:0.1]), "0.1");
}

TEST_F(Conversion, ReturnsNumbersExactly) {
  for (const char* const digits :
       {"0", "-1", "0.1", "12345678901234567890123456789012345678",
        "-0.00000000000000000000000000000000000001", "99999999999999999999999999999999999999",
        "-123000000000000000000000000000000000000000",
        "0.0000000000000000000000000000000000000000000000000123"}) {
    NSDecimalNumber* const number = toFoundation(std::optional(JXDecimal::fromString(digits)));
    EXPECT_EQ(digitsOf(number), digits);
  }
  const JXDecimal zero = JXDecimal::fromString("0." + std::string(50, '0'));
  EXPECT_TRUE([toFoundation(std::optional(zero)) isEqual:[NSDecimalNumber zero]]);
  EXPECT_EQ(toFoundation(std::optional<JXDecimal>()), nil);
  EXPECT_TRUE([toFoundation(std::optional(JXDecimal::nan())) isEqual:[NSDecimalNumber notANumber]]);
}

TEST_F(Conversion, ANumberThatIsNotFiniteIsNaN) {
  EXPECT_TRUE(toDecimal([NSDecimalNumber notANumber], kPlace)->isNaN());
  EXPECT_TRUE(toDecimal([NSNumber numberWithDouble:NAN], kPlace)->isNaN());
  EXPECT_TRUE(toDecimal([NSNumber numberWithDouble:-INFINITY], kPlace)->isNaN());
  EXPECT_TRUE(toDecimal([NSNumber numberWithFloat:INFINITY], kPlace)->isNaN());
  EXPECT_FALSE(toDecimal(nil, kPlace).has_value());
}

TEST_F(Conversion, AWrongClassIsLoggedOnceAndCountsAsNil) {
  start();
  EXPECT_EQ(toString([NSNumber numberWithInt:1], "a"), JXString());
  EXPECT_FALSE(toDecimal(@"12", "b").has_value());
  EXPECT_FALSE(toJson([NSDate date], "c").isPresent());
  EXPECT_FALSE(toJsonObject([NSArray array], "d").isPresent());
  const auto logged = linesUpTo(3);
  ASSERT_EQ(logged.size(), 4u);
  const auto contains = [&](std::size_t line, const char* expected) {
    return logged[line].message.find(expected) != std::string::npos;
  };
  EXPECT_TRUE(contains(0, "a: ") && contains(0, " instead of NSString; ignored"));
  EXPECT_TRUE(contains(1, "b: ") && contains(1, " instead of NSNumber; ignored"));
  EXPECT_TRUE(contains(2, "c: ") && contains(2, "ignored"));
  EXPECT_TRUE(contains(3, "d: ") && contains(3, " instead of NSDictionary; ignored"));
}

TEST_F(Conversion, ConvertsJsonValuesInBothDirections) {
  NSDictionary* const dictionary = [NSDictionary
      dictionaryWithObjectsAndKeys:@"text", @"string", [NSNumber numberWithBool:YES], @"yes",
                                   [NSNumber numberWithInt:1], @"one", decimal(@"0.1"), @"tenth",
                                   [NSNull null], @"null",
                                   [NSArray arrayWithObjects:@"a", [NSNumber numberWithInt:2], nil],
                                   @"list", [NSDictionary dictionary], @"empty", nil];
  const JXJsonObject object = toJsonObject(dictionary, kPlace);
  EXPECT_EQ(object.size(), 7u);
  EXPECT_EQ(object.get("string").string(), JXString("text"));
  EXPECT_EQ(object.get("yes").kind(), JXJsonValue::Kind::Bool);
  EXPECT_TRUE(object.get("yes").boolValue());
  EXPECT_EQ(object.get("one").numberString(), JXString("1"));
  EXPECT_EQ(object.get("tenth").numberString(), JXString("0.1"));
  EXPECT_EQ(object.get("null").kind(), JXJsonValue::Kind::Null);
  EXPECT_EQ(object.get("list").array().size(), 2u);
  EXPECT_EQ(object.get("empty").object().size(), 0u);
  EXPECT_TRUE([toFoundation(object) isEqual:dictionary]);
}

TEST_F(Conversion, ReturnsLargeIntegersOfJsonExactly) {
  const char* const digits = "123456789012345678901234567890";
  const id number = toFoundation(JXJsonValue::numberFromString(digits));
  EXPECT_TRUE([number isKindOfClass:[NSDecimalNumber class]]);
  EXPECT_EQ(digitsOf(number), digits);
  EXPECT_EQ([toFoundation(JXJsonValue(999'999'999'999'999'999)) longLongValue],
            999'999'999'999'999'999);
}

TEST_F(Conversion, IgnoresEntriesThatJsonDoesNotHave) {
  start();
  NSMutableDictionary* const dictionary = [NSMutableDictionary dictionary];
  [dictionary setObject:@"kept" forKey:@"key"];
  [dictionary setObject:@"number as key" forKey:[NSNumber numberWithInt:1]];
  [dictionary setObject:[NSDate date] forKey:@"date"];
  [dictionary setObject:[NSNumber numberWithDouble:NAN] forKey:@"nan"];
  const JXJsonObject object = toJsonObject(dictionary, kPlace);
  EXPECT_EQ(object.size(), 1u);
  EXPECT_EQ(object.get("key").string(), JXString("kept"));
  EXPECT_EQ(linesUpTo(3).size(), 2u);
}

TEST_F(Conversion, IgnoresWhatIsNestedTooDeeply) {
  start();
  NSMutableArray* nested = [NSMutableArray array];
  for (int level = 1; level < 1'500; ++level)
    nested = [NSMutableArray arrayWithObject:nested];
  JXJsonArray array = toJsonArray(nested, kPlace);
  int depth = 0;
  for (; array.isPresent(); ++depth)
    array = array.at(0).array();
  EXPECT_EQ(depth, 1'000);
  EXPECT_EQ(count({3, "place: nested more deeply than 1,000 levels; ignored"}), 1u);
}

TEST_F(Conversion, IgnoresWhatContainsItself) {
  start();
  NSMutableArray* const cycle = [NSMutableArray array];
  const id itself = cycle;
  [cycle addObject:itself];
  [cycle addObject:[NSDictionary dictionaryWithObject:itself forKey:@"a"]];
  [cycle addObject:@"b"];
  const JXJsonArray array = toJsonArray(cycle, kPlace);
  EXPECT_EQ(array.at(array.size() - 1).string(), JXString("b"));
  EXPECT_EQ(count({3, "place: contains itself; ignored"}), 2u);
  [cycle removeAllObjects];
  // The same object twice, but not inside itself.
  NSArray* const twice = [NSArray arrayWithObjects:itself, itself, nil];
  EXPECT_EQ(toJsonArray(twice, kPlace).size(), 2u);
  EXPECT_EQ(linesUpTo(3).size(), 2u);
}

TEST_F(Conversion, ReturnsNumbersThatFoundationCannotHoldAsTheNearest) {
  const std::string large = "1" + std::string(200, '0');
  const id number = toFoundation(JXJsonValue::numberFromString(large));
  EXPECT_EQ([number doubleValue], 1e200);
  const std::string small = "0." + std::string(300, '0') + "1";
  EXPECT_EQ([toFoundation(JXJsonValue::numberFromString(small)) doubleValue], 1e-301);
  const std::string fortyDigits = "1234567890123456789012345678901234567850";
  EXPECT_EQ(digitsOf(toFoundation(JXJsonValue::numberFromString(fortyDigits))),
            "1234567890123456789012345678901234567900");
  const std::string larger = "1" + std::string(400, '0');
  EXPECT_EQ(toFoundation(JXJsonValue::numberFromString(larger)), [NSNull null]);
}

}  // namespace
}  // namespace jx::objc
