// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What a server may do to a delivery: each fault is played against several queued events, and then
// the server is healed.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/fault/FaultTable.h"
#include "tests/fault/ServerFault.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

std::string nameOf(const ::testing::TestParamInfo<ServerFault>& info) { return info.param.name; }

Texts sorted(Texts texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

class ServerThat : public ::testing::TestWithParam<ServerFault> {
 protected:
  ServerStory story;
};

class HoldingFault : public ServerThat {};

TEST_P(HoldingFault, HealedIsFollowedByDelivery) {
  tellStoryOfHolding(story, GetParam(), HealedBefore::TheSameProcess);
}

TEST_P(HoldingFault, HealedLaterIsFollowedByDeliveryFromTheNextProcess) {
  ServerFault fault = GetParam();
  fault.order.clear();  // its row tells the story of one process
  tellStoryOfHolding(story, fault, HealedBefore::TheNextProcess);
}

INSTANTIATE_TEST_SUITE_P(Server, HoldingFault, ::testing::ValuesIn(faultsThatHold()), nameOf);

class RejectingFault : public ServerThat {
 protected:
  // Both events are told as rejected, once each, and lie among the dead letters.
  void expectRejected(const Texts& eventIds) {
    const std::string status = std::to_string(GetParam().status);
    ASSERT_TRUE(story.deliveries.waitFor(eventIds.size()));
    Texts told, lines, bodies;
    for (const JXDelivery& delivery : story.deliveries.all()) {
      EXPECT_EQ(delivery.outcome, JXDeliveryOutcome::Rejected);
      EXPECT_EQ(delivery.status, GetParam().status);
      EXPECT_EQ(delivery.reason, JXString("HTTP status " + status));
      told.push_back(delivery.eventId.toStdString());
    }
    for (const std::string& id : eventIds) {
      lines.push_back("2 Server rejected event " + id + ": HTTP status " + status +
                      "; not retrying");
      bodies.push_back(bodyOf(id));
    }
    EXPECT_EQ(sorted(told), eventIds);
    EXPECT_EQ(sorted(story.lines(5)), lines);
    EXPECT_EQ(sorted(story.server.bodies()), bodies);
    expectDeadLetters(bodies);
  }
  void expectDeadLetters(const Texts& bodies) {
    std::string error;
    Texts buried;
    for (const JXOutboxListing& letter : listDeadLetters(story.folder.path("outbox"), error)) {
      EXPECT_EQ(letter.status, GetParam().status);
      EXPECT_EQ(letter.url, story.url);
      buried.push_back(letter.body);
    }
    EXPECT_EQ(error, "");
    EXPECT_EQ(sorted(buried), bodies);
  }
};

TEST_P(RejectingFault, BuriesTheEventsAndIsNotAskedAgain) {
  GetParam().play(story);
  story.startProcess();
  for (const char* id : {"a", "b", "c"})
    story.execute(id);
  EXPECT_TRUE(story.deliverAll());
  expectRejected({"a", "b", "c"});
  const JXDeliveryCounters rejected = story.counters();
  EXPECT_EQ(rejected.outbox.rejected, 3u);
  EXPECT_EQ(rejected.outbox.delivered, 0u);
  EXPECT_EQ(rejected.attempts, 3u);
  EXPECT_EQ(rejected.failures, 0u) << "a lasting answer is no failure, and pauses nothing";

  GetParam().heal(story);
  story.endProcess();
  story.startProcess();
  story.execute("d");
  EXPECT_TRUE(story.deliverAll());
  ASSERT_TRUE(story.deliveries.waitFor(4));
  EXPECT_EQ(sorted(story.server.bodies()),
            (Texts{bodyOf("a"), bodyOf("b"), bodyOf("c"), bodyOf("d")}));
  EXPECT_EQ(story.counters().outbox.delivered, 1u);
  expectDeadLetters({bodyOf("a"), bodyOf("b"), bodyOf("c")});
  EXPECT_EQ(story.elsewhere.connections(), 0) << "a redirect is not followed";
  const std::string following =
      GetParam().status == 301
          ? ", made " +
                counted(static_cast<std::uint64_t>(story.elsewhere.connections()), "connection",
                        "connections") +
                " to the other server"
          : "";
  writeFaultRow({GetParam().order, GetParam().fault, GetParam().did,
                 "tried each event once, moved it to the dead letters with the status and one log "
                 "line at level 2" +
                     following + "; the next event was delivered",
                 story.counters().outbox.delivered, 0, rejected.outbox.rejected,
                 droppedOf(rejected.outbox)});
}

INSTANTIATE_TEST_SUITE_P(Server, RejectingFault, ::testing::ValuesIn(faultsThatReject()), nameOf);

class DeliveringFault : public ServerThat {};

TEST_P(DeliveringFault, AfterACompleteHeadChangesNothing) {
  GetParam().play(story);
  story.startProcess();
  for (const char* id : {"a", "b", "c"})
    story.execute(id);
  EXPECT_TRUE(story.deliverAll());
  GetParam().heal(story);
  story.execute("d");
  EXPECT_TRUE(story.deliverAll());
  ASSERT_TRUE(story.deliveries.waitFor(4));
  EXPECT_EQ(sorted(story.server.bodies()),
            (Texts{bodyOf("a"), bodyOf("b"), bodyOf("c"), bodyOf("d")}));
  const JXDeliveryCounters counters = story.counters();
  EXPECT_EQ(counters.outbox.delivered, 4u);
  EXPECT_EQ(counters.outbox.queued, 0u);
  EXPECT_EQ(counters.attempts, 4u);
  EXPECT_EQ(counters.failures, 0u);
  EXPECT_EQ(story.lines(5), Texts{});
  writeFaultRow({GetParam().order, GetParam().fault, GetParam().did,
                 "took the status at its word: " + counted(counters.attempts, "try", "tries") +
                     " for 4 events, none repeated",
                 counters.outbox.delivered, 0, counters.outbox.rejected,
                 droppedOf(counters.outbox)});
}

INSTANTIATE_TEST_SUITE_P(Server, DeliveringFault, ::testing::ValuesIn(faultsThatDeliver()), nameOf);

}  // namespace
}  // namespace jx::test
