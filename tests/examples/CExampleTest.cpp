// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/CollectorProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

constexpr std::chrono::seconds kPatience{60};

class CExample : public ::testing::Test {
 protected:
  CExample()
      : collector_(JX_PROGRAM, folder_.path()),
        result_(ChildProcess::run(
            JX_EXAMPLE_C, {collector_.address(), collector_.caFile(), folder_.path("state")},
            kPatience)) {}

  // Returns the first event of this name; null if there is none.
  JXJsonObject body(const char* name) const {
    for (std::size_t i = 0; i < collector_.eventCount(); ++i) {
      const JXJsonObject body = collector_.body(i);
      if (body.get("event_name").string() == JXString(name)) return body;
    }
    return nullptr;
  }

  const TemporaryFolder folder_;
  const CollectorProgram collector_;
  const ChildProcess::Result result_;
};

TEST_F(CExample, DeliversItsSessionAndPrintsTheCounters) {
  EXPECT_EQ(result_.status, 0);
  EXPECT_EQ(result_.errors, "");
  EXPECT_EQ(result_.output, "added 11, delivered 11, rejected 0, queued 0\n");
  std::vector<std::string> names;
  for (std::size_t i = 0; i < collector_.eventCount(); ++i)
    names.push_back(collector_.body(i).get("event_name").string().toStdString());
  // Concurrent requests may arrive in any order.
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{
                       "add_to_cart", "page_view", "purchase", "quiz_answered", "search",
                       "video_ad_complete", "video_ad_start", "video_complete",
                       "video_content_quarter_reached", "video_start", "video_subtitle_on"}));
}

TEST_F(CExample, WaitsForConsentAndKeepsExactAmounts) {
  EXPECT_EQ(body("search").get("user").string(), JXString("waiting_for_consent"));
  const JXJsonObject purchase = body("purchase");
  EXPECT_EQ(purchase.get("user").object().get("consent_id").string(), JXString("consent-1"));
  EXPECT_EQ(purchase.get("store").string(), JXString("uk"));
  EXPECT_EQ(purchase.get("shipping_amount").numberString(), JXString("3.00"));
  const JXJsonObject product = purchase.get("items").array().at(0).object().get("product").object();
  EXPECT_EQ(product.get("price").numberString(), JXString("3.39"));
  EXPECT_EQ(product.get("category_2").string(), JXString("light"));
}

std::string readFile(const std::string& path) {
  std::ifstream file(std::string(JX_SOURCE_DIR) + "/" + path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(CMinimalExample, DeliversItsEventOverHttps) {
  const TemporaryFolder folder;
  const CollectorProgram collector(JX_PROGRAM, folder.path());
  const auto result =
      ChildProcess::run(JX_EXAMPLE_C_MINIMAL,
                        {collector.address(), collector.caFile(), folder.path("state")}, kPatience);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  ASSERT_EQ(collector.eventCount(), 1u);
  EXPECT_EQ(collector.body(0).get("event_name").string(), JXString("quiz_answered"));
  EXPECT_EQ(collector.body(0).get("page_name").string(), JXString("quiz"));
  EXPECT_EQ(collector.body(0).get("answer").string(), JXString("B"));
}

TEST(CMinimalExample, MatchesTheCodeInTheGuide) {
  const std::string example = readFile("examples/c/minimal.c");
  ASSERT_FALSE(example.empty());
  EXPECT_NE(readFile("docs/c.md").find("\n```c\n" + example + "```\n"), std::string::npos);
}

}  // namespace
}  // namespace jx::test
