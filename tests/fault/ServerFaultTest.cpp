// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Faults of a server during delivery: each is tested with several queued events, and then healed.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "jx/core/storage/JXOutboxFolder.h"
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

class ServerWithFault : public ::testing::TestWithParam<ServerFault> {
 protected:
  ServerScenario scenario;
};

class TransientFault : public ServerWithFault {};

TEST_P(TransientFault, DeliversEachEventOnceInSameProcess) {
  expectDeliveryAfterFault(scenario, GetParam(), HealedBefore::TheSameProcess);
}

TEST_P(TransientFault, DeliversEachEventOnceInNextProcess) {
  ServerFault fault = GetParam();
  fault.order.clear();  // the row describes one process
  expectDeliveryAfterFault(scenario, fault, HealedBefore::TheNextProcess);
}

INSTANTIATE_TEST_SUITE_P(Server, TransientFault, ::testing::ValuesIn(transientFaults()), nameOf);

// The server is available, so each event is sent once and then retried on its own schedule.
TEST(ServerErrorFault, RetriesEachEventAfterItsOwnDelay) {
  ServerScenario scenario;
  JXTestAnswer failing;
  failing.status = 500;
  scenario.server.answerAll(failing);
  scenario.startProcess();
  for (const char* id : {"a", "b", "c"})
    scenario.execute(id);
  ASSERT_TRUE(scenario.waitForFailedAttempts(3));
  int messages = 0;
  for (const FailedAttempt& failed : scenario.failures.all()) {
    EXPECT_EQ(failed.backoff, 60s);
    EXPECT_NE(failed.reason.find("HTTP status 500"), std::string::npos) << failed.reason;
    messages += failed.level <= 3 ? 1 : 0;
  }
  EXPECT_EQ(messages, 1);
  const JXDeliveryCounters during = scenario.counters();
  EXPECT_EQ(during.outbox.queued, 3u);
  ASSERT_TRUE(scenario.advance(60s - 1ms));
  EXPECT_EQ(scenario.counters().attempts, 3u);
  scenario.server.answerAll({});
  ASSERT_TRUE(scenario.advance(1ms));
  EXPECT_TRUE(scenario.deliverAll());
  const JXDeliveryCounters after = scenario.counters();
  EXPECT_EQ(after.attempts, 6u);
  EXPECT_EQ(after.outbox.delivered, 3u);
  EXPECT_EQ(droppedOf(after.outbox), 0u);
  const Texts bodies = scenario.server.bodies();
  ASSERT_EQ(bodies.size(), 6u);
  EXPECT_EQ(sorted(Texts(bodies.begin() + 3, bodies.end())),
            (Texts{bodyOf("a"), bodyOf("b"), bodyOf("c")}));
  writeFaultRow({"3.06", "500 Internal Server Error", "responded with 500",
                 counted(during.attempts, "failed attempt", "failed attempts") + ", " +
                     counted(static_cast<std::uint64_t>(messages), "log message", "log messages") +
                     ", no attempt within 60 s; then the same process delivered each event once",
                 after.outbox.delivered, during.outbox.queued, after.outbox.rejected,
                 droppedOf(after.outbox)});
}

class RejectingFault : public ServerWithFault {
 protected:
  // Expects each event to be reported as rejected once and moved to the dead letters.
  void expectRejected(const Texts& eventIds) {
    const std::string status = std::to_string(GetParam().status);
    ASSERT_TRUE(scenario.deliveries.waitFor(eventIds.size()));
    Texts reported, lines, bodies;
    for (const JXDelivery& delivery : scenario.deliveries.all()) {
      EXPECT_EQ(delivery.outcome, JXDeliveryOutcome::Rejected);
      EXPECT_EQ(delivery.status, GetParam().status);
      EXPECT_EQ(delivery.reason, JXString("HTTP status " + status));
      reported.push_back(delivery.eventId.toStdString());
    }
    for (const std::string& id : eventIds) {
      lines.push_back("2 Server rejected event " + id + ": HTTP status " + status +
                      "; not retrying");
      bodies.push_back(bodyOf(id));
    }
    EXPECT_EQ(sorted(reported), eventIds);
    EXPECT_EQ(sorted(scenario.lines(5)), lines);
    EXPECT_EQ(sorted(scenario.server.bodies()), bodies);
    expectDeadLetters(bodies);
  }
  void expectDeadLetters(const Texts& bodies) {
    std::string error;
    Texts letters;
    for (const JXOutboxListing& letter : listDeadLetters(scenario.folder.path("outbox"), error)) {
      EXPECT_EQ(letter.status, GetParam().status);
      EXPECT_EQ(letter.url, scenario.url);
      letters.push_back(letter.body);
    }
    EXPECT_EQ(error, "");
    EXPECT_EQ(sorted(letters), bodies);
  }
};

TEST_P(RejectingFault, MovesEventsToDeadLettersWithoutRetrying) {
  GetParam().play(scenario);
  scenario.startProcess();
  for (const char* id : {"a", "b", "c"})
    scenario.execute(id);
  EXPECT_TRUE(scenario.deliverAll());
  expectRejected({"a", "b", "c"});
  const JXDeliveryCounters rejected = scenario.counters();
  EXPECT_EQ(rejected.outbox.rejected, 3u);
  EXPECT_EQ(rejected.outbox.delivered, 0u);
  EXPECT_EQ(rejected.attempts, 3u);
  EXPECT_EQ(rejected.failures, 0u) << "a final response is not a failure and pauses nothing";

  GetParam().heal(scenario);
  scenario.endProcess();
  scenario.startProcess();
  scenario.execute("d");
  EXPECT_TRUE(scenario.deliverAll());
  ASSERT_TRUE(scenario.deliveries.waitFor(4));
  EXPECT_EQ(sorted(scenario.server.bodies()),
            (Texts{bodyOf("a"), bodyOf("b"), bodyOf("c"), bodyOf("d")}));
  EXPECT_EQ(scenario.counters().outbox.delivered, 1u);
  expectDeadLetters({bodyOf("a"), bodyOf("b"), bodyOf("c")});
  EXPECT_EQ(scenario.elsewhere.connections(), 0) << "a redirect is not followed";
  const std::string following =
      GetParam().status == 301
          ? ", made " +
                counted(static_cast<std::uint64_t>(scenario.elsewhere.connections()), "connection",
                        "connections") +
                " to the other server"
          : "";
  writeFaultRow({GetParam().order, GetParam().fault, GetParam().did,
                 "sent each event once and moved it to the dead letters, with the status and one "
                 "log message at level 2" +
                     following + "; the next event was delivered",
                 scenario.counters().outbox.delivered, 0, rejected.outbox.rejected,
                 droppedOf(rejected.outbox)});
}

INSTANTIATE_TEST_SUITE_P(Server, RejectingFault, ::testing::ValuesIn(rejectingFaults()), nameOf);

class DeliveringFault : public ServerWithFault {};

TEST_P(DeliveringFault, AcceptsStatusOfCompleteHeaders) {
  GetParam().play(scenario);
  scenario.startProcess();
  for (const char* id : {"a", "b", "c"})
    scenario.execute(id);
  EXPECT_TRUE(scenario.deliverAll());
  GetParam().heal(scenario);
  scenario.execute("d");
  EXPECT_TRUE(scenario.deliverAll());
  ASSERT_TRUE(scenario.deliveries.waitFor(4));
  EXPECT_EQ(sorted(scenario.server.bodies()),
            (Texts{bodyOf("a"), bodyOf("b"), bodyOf("c"), bodyOf("d")}));
  const JXDeliveryCounters counters = scenario.counters();
  EXPECT_EQ(counters.outbox.delivered, 4u);
  EXPECT_EQ(counters.outbox.queued, 0u);
  EXPECT_EQ(counters.attempts, 4u);
  EXPECT_EQ(counters.failures, 0u);
  EXPECT_EQ(scenario.lines(5), Texts{});
  writeFaultRow({GetParam().order, GetParam().fault, GetParam().did,
                 "accepted the status: " + counted(counters.attempts, "attempt", "attempts") +
                     " for 4 events, none repeated",
                 counters.outbox.delivered, 0, counters.outbox.rejected,
                 droppedOf(counters.outbox)});
}

INSTANTIATE_TEST_SUITE_P(Server, DeliveringFault, ::testing::ValuesIn(deliveringFaults()), nameOf);

}  // namespace
}  // namespace jx::test
