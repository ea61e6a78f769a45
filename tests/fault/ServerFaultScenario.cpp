// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <map>

#include "tests/fault/FaultTable.h"
#include "tests/fault/ServerFault.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using Texts = std::vector<std::string>;

// Measurements of the row, in addition to the counters.
struct RetryDelays {
  std::vector<milliseconds> lengths;
  int connections = 0;  // attempted during them
};

// Expects this retry delay, without a connection before its last millisecond.
void expectRetryDelay(ServerScenario& scenario, const ServerFault& fault, milliseconds delay,
                      RetryDelays& delays) {
  const int failed = static_cast<int>(scenario.failures.all().size());
  if (fault.clientGoesFirst) {
    ASSERT_TRUE(scenario.server.waitForConnections(failed));
  }
  const int connections = scenario.connections();
  const std::uint64_t attempts = scenario.counters().attempts;
  EXPECT_EQ(scenario.failures.all().back().backoff, delay);
  ASSERT_TRUE(scenario.advance(delay - 1ms));
  EXPECT_EQ(scenario.connections(), connections);
  EXPECT_EQ(scenario.counters().attempts, attempts);
  delays.lengths.push_back(scenario.failures.all().back().backoff);
  delays.connections += scenario.connections() - connections;
}

// Only the first failure is logged at level 3; the second one has the same cause.
void expectOneMessageFor(const std::vector<FailedAttempt>& failures, const std::string& reason) {
  EXPECT_EQ(failures.front().level, 3);
  EXPECT_NE(failures.front().reason.find(reason), std::string::npos) << failures.front().reason;
  EXPECT_EQ(failures[1].level, 6);
}

// Expects each of the events once, with the right body.
void expectEachOnce(const Texts& bodies, const Texts& eventIds) {
  std::map<std::string, int> wanted, seen;
  for (const std::string& id : eventIds)
    ++wanted[bodyOf(id)];
  for (const std::string& body : bodies)
    ++seen[body];
  EXPECT_EQ(seen, wanted);
}

void expectDelivered(ServerScenario& scenario, const Texts& eventIds) {
  ASSERT_TRUE(scenario.deliveries.waitFor(eventIds.size()));
  Texts reported;
  for (const JXDelivery& delivery : scenario.deliveries.all()) {
    EXPECT_EQ(delivery.outcome, JXDeliveryOutcome::Delivered);
    EXPECT_EQ(delivery.status, 200);
    reported.push_back(bodyOf(delivery.eventId.toStdString()));
  }
  expectEachOnce(reported, eventIds);
  const JXOutboxCounters outbox = scenario.counters().outbox;
  EXPECT_EQ(outbox.queued, 0u);
  EXPECT_EQ(outbox.rejected, 0u);
  EXPECT_EQ(droppedOf(outbox), 0u);
  EXPECT_EQ(scenario.deliveredByEndedProcesses + outbox.delivered, eventIds.size());
}

std::string describeRetries(const ServerScenario& scenario, const RetryDelays& delays,
                            HealedBefore healedBefore) {
  const std::vector<FailedAttempt> failures = scenario.failures.all();
  std::uint64_t lines = 0;
  for (const FailedAttempt& failure : failures)
    lines += failure.level <= 3 ? 1 : 0;
  std::string text = counted(failures.size(), "failed attempt", "failed attempts") + ", " +
                     counted(lines, "log message", "log messages") + ", retry delays of ";
  for (std::size_t i = 0; i < delays.lengths.size(); ++i)
    text += (i == 0 ? "" : " and ") + std::to_string(delays.lengths[i].count()) + " ms";
  return text + " with " +
         counted(static_cast<std::uint64_t>(delays.connections), "connection", "connections") +
         "; after the fault, the " +
         (healedBefore == HealedBefore::TheSameProcess ? "same" : "next") +
         " process delivered each event once";
}

}  // namespace

void expectDeliveryAfterFault(ServerScenario& scenario, const ServerFault& fault,
                              HealedBefore healedBefore) {
  RetryDelays delays;
  fault.play(scenario);
  scenario.startProcess();
  for (const char* id : {"a", "b", "c"})
    scenario.execute(id);
  ASSERT_TRUE(scenario.waitForFailedAttempts(1));
  scenario.execute("d");
  expectRetryDelay(scenario, fault, fault.initialBackoff, delays);
  ASSERT_TRUE(scenario.advance(1ms));
  ASSERT_TRUE(scenario.waitForFailedAttempts(2));
  scenario.execute("e");
  expectRetryDelay(scenario, fault, fault.secondBackoff, delays);
  const JXDeliveryCounters during = scenario.counters();
  EXPECT_EQ(during.outbox.queued, 5u);
  EXPECT_EQ(during.outbox.delivered, 0u);
  EXPECT_EQ(during.attempts, 2u);
  expectOneMessageFor(scenario.failures.all(), fault.reason);
  const Texts before = scenario.server.bodies();
  EXPECT_EQ(before, Texts(2 * fault.requestsRead, bodyOf("a")));

  Texts events{"a", "b", "c", "d", "e"};
  if (healedBefore == HealedBefore::TheNextProcess) {
    scenario.endProcess();
    fault.heal(scenario);
    scenario.startProcess();
    events.emplace_back("f");
    scenario.execute("f");
  } else {
    fault.heal(scenario);
    ASSERT_TRUE(scenario.advance(1ms));
  }
  EXPECT_TRUE(scenario.deliverAll());
  expectDelivered(scenario, events);
  const Texts all = scenario.server.bodies();
  EXPECT_EQ(all[before.size()], bodyOf("a"));
  expectEachOnce(Texts(all.begin() + static_cast<std::ptrdiff_t>(before.size()), all.end()),
                 events);
  EXPECT_EQ(scenario.counters().attempts + scenario.attemptsOfEndedProcesses, 2 + events.size());
  EXPECT_EQ(scenario.failures.all().size(), 2u);
  EXPECT_EQ(scenario.elsewhere.connections(), 0);
  if (fault.order.empty()) return;
  writeFaultRow({fault.order, fault.fault, fault.did,
                 describeRetries(scenario, delays, healedBefore),
                 scenario.deliveredByEndedProcesses + scenario.counters().outbox.delivered,
                 during.outbox.queued, scenario.counters().outbox.rejected,
                 droppedOf(scenario.counters().outbox)});
}

}  // namespace jx::test
