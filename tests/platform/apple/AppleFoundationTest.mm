// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <string>

#include "jx/platform/apple/JXFoundationDefaults.h"
#include "jx/platform/apple/JXFoundationLocale.h"
#import "jx/platform/apple/JXFoundationString.h"

namespace jx::test {
namespace {

TEST(FoundationString, ReturnsNullForNilAndOtherClasses) {
  @autoreleasepool {
    EXPECT_EQ(stringOf(nil), JXString());
    EXPECT_EQ(stringOf([NSNumber numberWithInt:42]), JXString());
    EXPECT_EQ(stringOf([NSArray array]), JXString());
  }
}

TEST(FoundationString, ConvertsStringsInBothDirections) {
  @autoreleasepool {
    for (const JXString& text : {JXString(""), JXString("caf\xC3\xA9"),
                                 JXString(std::string("a\0b", 3)), JXString("\xF0\x9F\x93\xBA")}) {
      EXPECT_EQ(stringOf(foundationString(text)), text);
    }
  }
}

TEST(FoundationString, ReturnsNilForNullAndInvalidUtf8) {
  @autoreleasepool {
    EXPECT_TRUE(foundationString(nullptr) == nil);
    EXPECT_TRUE(foundationString("\xFF") == nil);
  }
}

TEST(FoundationDefaults, ReturnsNullForEntriesThatAreNotStrings) {
  @autoreleasepool {
    [[NSUserDefaults standardUserDefaults] setInteger:42 forKey:@"number"];
    [[NSUserDefaults standardUserDefaults] setObject:[NSArray array] forKey:@"list"];
  }
  JXFoundationDefaults defaults;
  EXPECT_EQ(defaults.objectForKey("number"), JXString());
  EXPECT_EQ(defaults.objectForKey("list"), JXString());
}

TEST(FoundationDefaults, WritesValuesThatTheApplicationCanRead) {
  JXFoundationDefaults defaults;
  defaults.setObject_forKey("6F9619FF", "jx_unique_id");
  @autoreleasepool {
    EXPECT_TRUE([[[NSUserDefaults standardUserDefaults] stringForKey:@"jx_unique_id"]
        isEqualToString:@"6F9619FF"]);
  }
}

TEST(FoundationLocale, ReturnsTheLocalTimeZone) {
  @autoreleasepool {
    [NSTimeZone setDefaultTimeZone:[NSTimeZone timeZoneWithName:@"Asia/Tokyo"]];
  }
  EXPECT_EQ(foundationTimeZoneName(), JXString("Asia/Tokyo"));
}

TEST(FoundationLocale, ReturnsTheLanguagesInOrderOfPreference) {
  @autoreleasepool {
    // GNUstep's equivalent of the language settings.
    [NSUserDefaults setUserLanguages:[NSArray arrayWithObjects:@"fr-CA", @"en", nil]];
  }
  const auto languages = foundationLanguages();
  ASSERT_EQ(languages.size(), 2U);
  EXPECT_EQ(languages[0], JXString("fr-CA"));
  EXPECT_EQ(languages[1], JXString("en"));
}

}  // namespace
}  // namespace jx::test
