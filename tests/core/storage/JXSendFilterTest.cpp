// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXSendFilter.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using Earlier = JXSendFilter::Earlier;
using Rules = std::vector<JXSendFilter::Rule>;
using Marks = std::vector<JXStopMark>;

constexpr std::uint32_t kOurs = 1;
constexpr std::uint32_t kForeign = 2;

// A request that an earlier process left.
JXOutboxEntry earlier(JXSendPolicy policy, std::uint32_t source = kOurs, std::uint16_t stops = 0) {
  JXOutboxEntry entry;
  entry.source = source;
  entry.origin = {policy, stops};
  entry.awaitsDecision = true;
  return entry;
}

JXOutboxEntry waiting(std::uint32_t source = kOurs, std::uint16_t stops = 0) {
  JXOutboxEntry entry = earlier(JXSendPolicy::AsksFirst, source, stops);
  entry.hasWaitingMarker = true;
  return entry;
}

JXOutboxEntry ofThisProcess(JXSendPolicy policy) {
  JXOutboxEntry entry = earlier(policy);
  entry.awaitsDecision = false;
  return entry;
}

constexpr JXSendPolicy kPolicies[] = {JXSendPolicy::Unknown, JXSendPolicy::Enabled,
                                      JXSendPolicy::AlwaysEnabled, JXSendPolicy::AsksFirst};

TEST(SendFilter, AllowsEverythingByDefault) {
  for (const JXSendPolicy policy : kPolicies) {
    EXPECT_TRUE(JXSendFilter().allows(earlier(policy)));
    EXPECT_TRUE(JXSendFilter().allows(ofThisProcess(policy)));
  }
}

TEST(SendFilter, StopHoldsAllThatIsNotAlwaysEnabled) {
  const JXSendFilter filter(true, Rules{{kOurs, Earlier::All}}, Marks(), true);
  for (const JXSendPolicy policy : kPolicies) {
    const bool isSent = policy == JXSendPolicy::AlwaysEnabled;
    EXPECT_EQ(isSent, filter.allows(earlier(policy)));
    EXPECT_EQ(isSent, filter.allows(ofThisProcess(policy)));
  }
  EXPECT_FALSE(filter.allows(waiting()));
}

TEST(SendFilter, HoldsEarlierRequestsBeforeAnyServerSideStarted) {
  const JXSendFilter filter(false, Rules(), Marks(), false);
  for (const JXSendPolicy policy : kPolicies) {
    EXPECT_EQ(policy == JXSendPolicy::AlwaysEnabled, filter.allows(earlier(policy)));
    EXPECT_TRUE(filter.allows(ofThisProcess(policy)));
  }
  EXPECT_FALSE(filter.allows(waiting()));
}

TEST(SendFilter, RuleDecidesForEarlierRequestsOfItsSource) {
  const auto filterOf = [](Earlier rule) {
    return JXSendFilter(false, Rules{{kOurs, rule}}, Marks(), false);
  };
  const JXOutboxEntry enabled = earlier(JXSendPolicy::Enabled);
  EXPECT_TRUE(filterOf(Earlier::All).allows(enabled));
  EXPECT_TRUE(filterOf(Earlier::All).allows(waiting()));
  EXPECT_FALSE(filterOf(Earlier::WaitingOnly).allows(enabled));
  EXPECT_TRUE(filterOf(Earlier::WaitingOnly).allows(waiting()));
  EXPECT_FALSE(filterOf(Earlier::None).allows(enabled));
  EXPECT_FALSE(filterOf(Earlier::None).allows(waiting()));
  EXPECT_TRUE(filterOf(Earlier::None).allows(earlier(JXSendPolicy::AlwaysEnabled)));
  EXPECT_TRUE(filterOf(Earlier::None).allows(ofThisProcess(JXSendPolicy::Enabled)));
}

TEST(SendFilter, MarkHoldsEarlierRequestsOfItsSourceThatAreOlder) {
  for (const Earlier rule : {Earlier::All, Earlier::WaitingOnly}) {
    const JXSendFilter filter(false, Rules{{kOurs, rule}}, Marks{{kOurs, 3}}, true);
    EXPECT_FALSE(filter.allows(earlier(JXSendPolicy::Enabled, kOurs, 2)));
    EXPECT_FALSE(filter.allows(earlier(JXSendPolicy::Unknown, kOurs, 0)));
    EXPECT_FALSE(filter.allows(waiting(kOurs, 2)));
    EXPECT_TRUE(filter.allows(waiting(kOurs, 3)));
    EXPECT_TRUE(filter.allows(earlier(JXSendPolicy::AlwaysEnabled, kOurs, 0)));
    EXPECT_TRUE(filter.allows(ofThisProcess(JXSendPolicy::Enabled)));
    EXPECT_TRUE(filter.allows(earlier(JXSendPolicy::Enabled, kForeign, 0)));
  }
}

TEST(SendFilter, HandlesRequestsOfAnUnknownSourceAsTheirServerSideWould) {
  const JXSendFilter filter(false, Rules{{kOurs, Earlier::None}}, Marks(), false);
  EXPECT_TRUE(filter.allows(earlier(JXSendPolicy::Enabled, kForeign)));
  EXPECT_TRUE(filter.allows(earlier(JXSendPolicy::AlwaysEnabled, kForeign)));
  EXPECT_FALSE(filter.allows(earlier(JXSendPolicy::AsksFirst, kForeign)));
  EXPECT_FALSE(filter.allows(earlier(JXSendPolicy::Unknown, kForeign)));
  EXPECT_TRUE(filter.allows(waiting(kForeign)));
  const JXSendFilter marked(false, Rules{{kOurs, Earlier::All}}, Marks{{kForeign, 1}}, true);
  EXPECT_FALSE(marked.allows(earlier(JXSendPolicy::Enabled, kForeign)));
  EXPECT_FALSE(marked.allows(waiting(kForeign)));
}

TEST(SendFilter, SourceIsTheQueryOfTheUrl) {
  const std::uint32_t source = JXSendFilter::sourceOf("https://a.example/events?jx_s=1&token=k");
  EXPECT_EQ(source, JXSendFilter::sourceOf("https://b.example:8443/events?jx_s=1&token=k"));
  EXPECT_NE(source, JXSendFilter::sourceOf("https://a.example/events?jx_s=2&token=k"));
  EXPECT_NE(source, JXSendFilter::sourceOf("https://a.example/events?jx_s=1&token=l"));
  EXPECT_EQ(JXSendFilter::sourceOf("https://a.example/"),
            JXSendFilter::sourceOf("https://a.example/"));
  EXPECT_NE(JXSendFilter::sourceOf("https://a.example/"),
            JXSendFilter::sourceOf("https://b.example/"));
}

TEST(SendFilter, SourceIsTheSameInEveryVersion) {
  // CRC-32C of "123456789".
  EXPECT_EQ(0xE3069283u, JXSendFilter::sourceOf("https://a.example/events?123456789"));
}

TEST(SendFilter, RecognisesTheWaitingMarkerAtTheEndOfABody) {
  EXPECT_TRUE(JXSendFilter::hasWaitingMarker(
      "{\n  \"name\": \"a\",\n  \"user\": \"waiting_for_consent\"\n}"));
  EXPECT_TRUE(JXSendFilter::hasWaitingMarker(R"({"user":"waiting_for_consent"})"));
  EXPECT_TRUE(JXSendFilter::hasWaitingMarker("{\"user\" :\t\"waiting_for_consent\" \r\n}\n"));
  for (const char* body :
       {"", "{}", "{\n  \"user\": {\n    \"anonymous_id\": \"waiting_for_consent\"\n  }\n}",
        "{\n  \"a\": {\n    \"b\": 1,\n    \"user\": \"waiting_for_consent\"\n  }\n}",
        "{\n  \"a\": 1,\n  \"user\": \"waiting_for_consent\",\n  \"b\": 1\n}"}) {
    EXPECT_FALSE(JXSendFilter::hasWaitingMarker(body)) << body;
  }
}

}  // namespace
}  // namespace jx
