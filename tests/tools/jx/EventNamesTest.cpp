// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/EventNames.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(EventNames, ANameBelongsToTheClassThatWritesIt) {
  ASSERT_NE(classWriting("purchase"), nullptr);
  EXPECT_EQ(classWriting("purchase")->className, "JXPurchaseEvent");
  ASSERT_NE(classWriting("video_seek_start"), nullptr);
  EXPECT_EQ(classWriting("video_seek_start")->className, "JXVideoPlaybackEvent");
  EXPECT_EQ(classWriting("quiz"), nullptr);
  EXPECT_EQ(classWriting(""), nullptr);
}

TEST(EventNames, CapitalsAndSeparatorsAreASlip) {
  EXPECT_EQ(nameMeantBy("Purchase"), "purchase");
  EXPECT_EQ(nameMeantBy("addToCart"), "add_to_cart");
  EXPECT_EQ(nameMeantBy("add-to-cart"), "add_to_cart");
  EXPECT_EQ(nameMeantBy("Video Start"), "video_start");
}

TEST(EventNames, OneLetterIsASlip) {
  EXPECT_EQ(nameMeantBy("purchse"), "purchase");
  EXPECT_EQ(nameMeantBy("purchasee"), "purchase");
  EXPECT_EQ(nameMeantBy("purchaze"), "purchase");
  EXPECT_EQ(nameMeantBy("video_strat"), "video_start");
}

TEST(EventNames, OtherNamesAreTheHostsOwn) {
  for (const char* name : {"purchase", "quiz", "", "login2", "my_purchase", "purch", "logon_page",
                           "search_results", "video", "x"}) {
    EXPECT_EQ(nameMeantBy(name), "") << name;
  }
  EXPECT_EQ(nameMeantBy(std::string(100'000, 'p')), "");
}

TEST(EventNames, TheTablesHaveOneFingerprint) {
  EXPECT_EQ(fingerprintOfTables(), fingerprintOfTables());
  EXPECT_GT(fingerprintOfTables(), 0);
}

}  // namespace
}  // namespace jx
