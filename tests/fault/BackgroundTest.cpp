// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Delivery while it is paused: in the background, and while waiting for the user agent.

#include <gtest/gtest.h>

#include "tests/fault/FacadeScenario.h"
#include "tests/fault/FaultTable.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;

class Background : public FacadeScenario {
 protected:
  void writeRow(const std::string& order, const std::string& fault, const std::string& did,
                const std::string& library, std::uint64_t queued) const {
    writeFaultRow({order, fault, did, library, counters().outbox.delivered, queued,
                   counters().outbox.rejected, droppedOf(counters().outbox)});
  }
};

TEST_F(Background, SendsNothingUntilForeground) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  ASSERT_TRUE(platform->enterBackground());
  for (const char* name : {"1", "2", "3"})
    execute(*serverSide, name);
  ASSERT_TRUE(advance(24h));
  EXPECT_EQ(counters().attempts, 0u);
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t queued = counters().outbox.queued;
  EXPECT_EQ(queued, 3u);
  ASSERT_TRUE(platform->enterForeground());
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(started(), executed());
  writeRow("8.01", "background", "was available",
           "made 0 connections for a day; in the foreground, delivered in order", queued);
}

TEST_F(Background, DelaysScheduledRetryUntilForeground) {
  JXTestAnswer busy;
  busy.status = 503;
  server.answerNext(busy);
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  execute(*serverSide, "failed");
  ASSERT_TRUE(waitForFailedAttempts(1));
  platform->enterBackground();
  ASSERT_TRUE(advance(24h));
  EXPECT_EQ(counters().attempts, 1u);
  const std::uint64_t queued = counters().outbox.queued;
  platform->enterForeground();
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(counters().attempts, 2u);
  writeRow("8.02", "background while a retry is scheduled", "responded with 503",
           "made no attempt when the retry was due; in the foreground, delivered", queued);
}

TEST_F(Background, FinishesRequestInFlight) {
  JXTestAnswer slow;
  slow.manner = JXTestAnswer::Manner::SlowBytes;
  server.answerNext(slow);
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  execute(*serverSide, "in flight");
  ASSERT_TRUE(server.waitForRequests(1));
  platform->enterBackground();
  execute(*serverSide, "later");
  while (counters().outbox.delivered < 1)
    ASSERT_TRUE(advance(0ms));
  ASSERT_TRUE(advance(24h));
  EXPECT_EQ(counters().attempts, 1u);
  EXPECT_EQ(server.requests().size(), 1u);
  EXPECT_EQ(server.abandoned(), 0);
  writeRow("8.03", "background while a request is in flight", "sent a 200, one byte every 20 ms",
           "finished the request and started no other", counters().outbox.queued);
}

TEST_F(Background, SendsWhenRunningInBackgroundIsEnabled) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  serverSide->enableRunningInBackground();
  platform->enterBackground();
  execute(*serverSide, "sent");
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), executed());
  writeRow("8.04", "background, running in background enabled", "was available", "delivered", 0);
}

class UserAgent : public Background {
 protected:
  UserAgent() { platform->userAgentAnswersLater = true; }
};

TEST_F(UserAgent, SendsWhenUserAgentIsKnown) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  serverSide->waitForUserAgent();
  execute(*serverSide, "event");
  ASSERT_TRUE(advance(9'999ms));
  EXPECT_EQ(counters().attempts, 0u);
  EXPECT_TRUE(counters().paused);
  const std::uint64_t queued = counters().outbox.queued;
  EXPECT_EQ(platform->answerUserAgent("Agent/2"), 1);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), executed());
  writeRow("8.05", "wait for the user agent, with a result", "was available",
           "made no attempt for 9999 ms; delivered when the user agent was known", queued);
}

TEST_F(UserAgent, SendsAfterTenSecondsWithoutUserAgent) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  serverSide->waitForUserAgent();
  execute(*serverSide, "event");
  ASSERT_TRUE(advance(9'999ms));
  EXPECT_EQ(counters().attempts, 0u);
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t queued = counters().outbox.queued;
  ASSERT_TRUE(advance(1ms));
  EXPECT_TRUE(deliverAll());
  EXPECT_FALSE(counters().paused);
  EXPECT_EQ(server.bodies(), executed());
  writeRow("8.06", "wait for the user agent, no result", "was available",
           "made no attempt for 9999 ms; delivered after 10000 ms", queued);
}

}  // namespace
}  // namespace jx::test
