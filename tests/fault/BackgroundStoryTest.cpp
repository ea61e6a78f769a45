// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Times at which nothing is begun: the background, and the wait for the user agent.

#include <gtest/gtest.h>

#include "tests/fault/FacadeStory.h"
#include "tests/fault/FaultTable.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;

class Background : public FacadeStory {
 protected:
  void writeRow(const std::string& order, const std::string& fault, const std::string& did,
                const std::string& library, std::uint64_t held) const {
    writeFaultRow({order, fault, did, library, counters().outbox.delivered, held,
                   counters().outbox.rejected, droppedOf(counters().outbox)});
  }
};

TEST_F(Background, NothingIsBegunUntilTheForeground) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  ASSERT_TRUE(platform->enterBackground());
  for (const char* name : {"1", "2", "3"})
    execute(*serverSide, name);
  ASSERT_TRUE(advance(24h));
  EXPECT_EQ(counters().attempts, 0u);
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t held = counters().outbox.queued;
  EXPECT_EQ(held, 3u);
  ASSERT_TRUE(platform->enterForeground());
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(begun(), executed());
  writeRow("8.01", "background", "was there all the time",
           "made 0 connections for a day; in the foreground, delivered in order", held);
}

TEST_F(Background, ARetryThatFallsDueThereWaitsForTheForeground) {
  JXTestAnswer busy;
  busy.status = 503;
  server.answerNext(busy);
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  execute(*serverSide, "failed");
  ASSERT_TRUE(waitForFailedTries(1));
  platform->enterBackground();
  ASSERT_TRUE(advance(24h));
  EXPECT_EQ(counters().attempts, 1u);
  const std::uint64_t held = counters().outbox.queued;
  platform->enterForeground();
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(counters().attempts, 2u);
  writeRow("8.02", "background while a retry is scheduled", "answered 503",
           "let the time of the retry pass; in the foreground, delivered", held);
}

TEST_F(Background, WhatIsInFlightMayEnd) {
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
  writeRow("8.03", "background while a request is in flight", "sent a 200 with a byte every 20 ms",
           "let the request end and began no other", counters().outbox.queued);
}

TEST_F(Background, EnabledItSendsAsInTheForeground) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  serverSide->enableRunningInBackground();
  platform->enterBackground();
  execute(*serverSide, "sent");
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), executed());
  writeRow("8.04", "background, running there enabled", "was there all the time", "delivered", 0);
}

class UserAgent : public Background {
 protected:
  UserAgent() { platform->userAgentAnswersLater = true; }
};

TEST_F(UserAgent, ItsAnswerLetsRequestsGo) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  serverSide->waitForUserAgent();
  execute(*serverSide, "held");
  ASSERT_TRUE(advance(9'999ms));
  EXPECT_EQ(counters().attempts, 0u);
  EXPECT_TRUE(counters().paused);
  const std::uint64_t held = counters().outbox.queued;
  EXPECT_EQ(platform->answerUserAgent("Agent/2"), 1);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), executed());
  writeRow("8.05", "wait for the user agent, answered", "was there all the time",
           "made no try for 9999 ms; with the answer, delivered", held);
}

TEST_F(UserAgent, WithoutAnAnswerRequestsGoAfterTenSeconds) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  serverSide->waitForUserAgent();
  execute(*serverSide, "held");
  ASSERT_TRUE(advance(9'999ms));
  EXPECT_EQ(counters().attempts, 0u);
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t held = counters().outbox.queued;
  ASSERT_TRUE(advance(1ms));
  EXPECT_TRUE(deliverAll());
  EXPECT_FALSE(counters().paused);
  EXPECT_EQ(server.bodies(), executed());
  writeRow("8.06", "wait for the user agent, no answer", "was there all the time",
           "made no try for 9999 ms; after 10000 ms, delivered", held);
}

}  // namespace
}  // namespace jx::test
