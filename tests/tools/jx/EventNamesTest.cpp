// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/EventNames.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(EventNames, FindsTheClassOfAnEventName) {
  ASSERT_NE(classOfEventName("purchase"), nullptr);
  EXPECT_EQ(classOfEventName("purchase")->className, "JXPurchaseEvent");
  ASSERT_NE(classOfEventName("video_seek_start"), nullptr);
  EXPECT_EQ(classOfEventName("video_seek_start")->className, "JXVideoPlaybackEvent");
  EXPECT_EQ(classOfEventName("quiz"), nullptr);
  EXPECT_EQ(classOfEventName(""), nullptr);
}

TEST(EventNames, SuggestsANameForOtherCaseAndSeparators) {
  EXPECT_EQ(suggestedName("Purchase"), "purchase");
  EXPECT_EQ(suggestedName("addToCart"), "add_to_cart");
  EXPECT_EQ(suggestedName("add-to-cart"), "add_to_cart");
  EXPECT_EQ(suggestedName("Video Start"), "video_start");
}

TEST(EventNames, SuggestsANameForOneWrongLetter) {
  EXPECT_EQ(suggestedName("purchse"), "purchase");
  EXPECT_EQ(suggestedName("purchasee"), "purchase");
  EXPECT_EQ(suggestedName("purchaze"), "purchase");
  EXPECT_EQ(suggestedName("video_strat"), "video_start");
}

TEST(EventNames, SuggestsNothingForCustomNames) {
  for (const char* name : {"purchase", "quiz", "", "login2", "my_purchase", "purch", "logon_page",
                           "search_results", "video", "x"}) {
    EXPECT_EQ(suggestedName(name), "") << name;
  }
  EXPECT_EQ(suggestedName(std::string(100'000, 'p')), "");
}

TEST(EventNames, SchemaFingerprintIsStable) {
  EXPECT_EQ(schemaFingerprint(), schemaFingerprint());
  EXPECT_GT(schemaFingerprint(), 0);
}

}  // namespace
}  // namespace jx
