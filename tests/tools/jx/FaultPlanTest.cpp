// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/FaultPlan.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(FaultPlan, HasNoFaultInitially) {
  EventBroadcaster broadcaster;
  FaultPlan plan(broadcaster);
  EXPECT_FALSE(plan.take());
  EXPECT_EQ(plan.toJson(), R"({"armed":null,"met":0})");
}

TEST(FaultPlan, AppliesAFaultToTheGivenNumberOfRequests) {
  EventBroadcaster broadcaster;
  FaultPlan plan(broadcaster);
  ASSERT_TRUE(plan.set(R"({"next":2,"delay_ms":500,"status":429,"retry_after":"5"})"));
  EXPECT_EQ(plan.toJson(), R"({"armed":{"next":2,"delay_ms":500,"status":429,"retry_after":"5",)"
                           R"("action":"answer"},"met":0})");
  const std::optional<Fault> first = plan.take();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->delay, std::chrono::milliseconds(500));
  EXPECT_EQ(first->status, std::optional<int>(429));
  EXPECT_EQ(first->retryAfter, std::optional<std::string>("5"));
  EXPECT_TRUE(first->rejects());
  EXPECT_TRUE(plan.take());
  EXPECT_FALSE(plan.take());
  EXPECT_EQ(plan.toJson(), R"({"armed":null,"met":2})");
}

TEST(FaultPlan, KeepsAFaultWithoutNextUntilCleared) {
  EventBroadcaster broadcaster;
  FaultPlan plan(broadcaster);
  ASSERT_TRUE(plan.set(R"({"action":"reset"})"));
  for (int i = 0; i < 100; ++i)
    ASSERT_TRUE(plan.take());
  ASSERT_TRUE(plan.set(R"({"next":0,"clear":true})"));
  EXPECT_FALSE(plan.take());
  ASSERT_TRUE(plan.set(R"({"next":0,"action":"hang"})"));
  plan.clear();
  EXPECT_FALSE(plan.take());
}

TEST(FaultPlan, Only2xxStatusesLetTheEventBeStored) {
  EventBroadcaster broadcaster;
  FaultPlan plan(broadcaster);
  const auto rejects = [&plan](const char* json) {
    EXPECT_TRUE(plan.set(json)) << json;
    return plan.take()->rejects();
  };
  EXPECT_FALSE(rejects(R"({"delay_ms":1})"));
  EXPECT_FALSE(rejects(R"({"status":204})"));
  EXPECT_TRUE(rejects(R"({"status":301})"));
  EXPECT_TRUE(rejects(R"({"action":"reset"})"));
  EXPECT_TRUE(rejects(R"({"action":"hang","status":200})"));
}

TEST(FaultPlan, InvalidInputChangesNothing) {
  EventBroadcaster broadcaster;
  FaultPlan plan(broadcaster);
  ASSERT_TRUE(plan.set(R"({"status":503})"));
  const std::string before = plan.toJson();
  for (const char* json :
       {"", "[]", "{}", R"({"next":3})", R"({"status":99})", R"({"status":600})",
        R"({"status":"503"})", R"({"status":429.5})", R"({"delay_ms":-1})",
        R"({"delay_ms":600001})", R"({"next":1000001,"status":503})", R"({"action":"explode"})",
        R"({"retry_after":"a\r\nb","status":503})", R"({"retry_after":"","status":503})",
        R"({"clear":1})", R"({"statsu":503})"}) {
    EXPECT_FALSE(plan.set(json)) << json;
    EXPECT_EQ(plan.toJson(), before) << json;
  }
}

}  // namespace
}  // namespace jx
