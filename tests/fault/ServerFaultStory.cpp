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

// What the row tells besides the counters.
struct Pauses {
  std::vector<milliseconds> lengths;
  int connections = 0;  // that were asked for during them
};

// The pause is the one expected; nobody is asked until its last millisecond has passed.
void expectPause(ServerStory& story, const ServerFault& fault, milliseconds pause, Pauses& pauses) {
  const int failed = static_cast<int>(story.failures.all().size());
  if (fault.clientGoesFirst) {
    ASSERT_TRUE(story.server.waitForConnections(failed));
  }
  const int connections = story.connections();
  const std::uint64_t tries = story.counters().attempts;
  EXPECT_EQ(story.failures.all().back().pause, pause);
  ASSERT_TRUE(story.advance(pause - 1ms));
  EXPECT_EQ(story.connections(), connections);
  EXPECT_EQ(story.counters().attempts, tries);
  pauses.lengths.push_back(story.failures.all().back().pause);
  pauses.connections += story.connections() - connections;
}

// The first failure is a line at level 3; the second says nothing new.
void expectOneLineFor(const std::vector<FailedTry>& failures, const std::string& reason) {
  EXPECT_EQ(failures.front().level, 3);
  EXPECT_NE(failures.front().reason.find(reason), std::string::npos) << failures.front().reason;
  EXPECT_EQ(failures[1].level, 6);
}

// Each of the events once, with its own bytes.
void expectEachOnce(const Texts& bodies, const Texts& eventIds) {
  std::map<std::string, int> wanted, seen;
  for (const std::string& id : eventIds)
    ++wanted[bodyOf(id)];
  for (const std::string& body : bodies)
    ++seen[body];
  EXPECT_EQ(seen, wanted);
}

void expectDelivered(ServerStory& story, const Texts& eventIds) {
  ASSERT_TRUE(story.deliveries.waitFor(eventIds.size()));
  Texts told;
  for (const JXDelivery& delivery : story.deliveries.all()) {
    EXPECT_EQ(delivery.outcome, JXDeliveryOutcome::Delivered);
    EXPECT_EQ(delivery.status, 200);
    told.push_back(bodyOf(delivery.eventId.toStdString()));
  }
  expectEachOnce(told, eventIds);
  const JXOutboxCounters outbox = story.counters().outbox;
  EXPECT_EQ(outbox.queued, 0u);
  EXPECT_EQ(outbox.rejected, 0u);
  EXPECT_EQ(droppedOf(outbox), 0u);
  EXPECT_EQ(story.deliveredByEndedProcesses + outbox.delivered, eventIds.size());
}

std::string howItWasHeld(const ServerStory& story, const Pauses& pauses,
                         HealedBefore healedBefore) {
  const std::vector<FailedTry> failures = story.failures.all();
  std::uint64_t lines = 0;
  for (const FailedTry& failure : failures)
    lines += failure.level <= 3 ? 1 : 0;
  std::string text = counted(failures.size(), "failed try", "failed tries") + ", " +
                     counted(lines, "log line", "log lines") + ", pauses of ";
  for (std::size_t i = 0; i < pauses.lengths.size(); ++i)
    text += (i == 0 ? "" : " and ") + std::to_string(pauses.lengths[i].count()) + " ms";
  return text + " with " +
         counted(static_cast<std::uint64_t>(pauses.connections), "connection", "connections") +
         "; once healed, the " + (healedBefore == HealedBefore::TheSameProcess ? "same" : "next") +
         " process delivered each event once";
}

}  // namespace

void tellStoryOfHolding(ServerStory& story, const ServerFault& fault, HealedBefore healedBefore) {
  Pauses pauses;
  fault.play(story);
  story.startProcess();
  for (const char* id : {"a", "b", "c"})
    story.execute(id);
  ASSERT_TRUE(story.waitForFailedTries(1));
  story.execute("d");
  expectPause(story, fault, fault.initialBackoff, pauses);
  ASSERT_TRUE(story.advance(1ms));
  ASSERT_TRUE(story.waitForFailedTries(2));
  story.execute("e");
  expectPause(story, fault, fault.secondPause, pauses);
  const JXDeliveryCounters held = story.counters();
  EXPECT_EQ(held.outbox.queued, 5u);
  EXPECT_EQ(held.outbox.delivered, 0u);
  EXPECT_EQ(held.attempts, 2u);
  expectOneLineFor(story.failures.all(), fault.reason);
  const Texts before = story.server.bodies();
  EXPECT_EQ(before, Texts(2 * fault.requestsRead, bodyOf("a")));

  Texts events{"a", "b", "c", "d", "e"};
  if (healedBefore == HealedBefore::TheNextProcess) {
    story.endProcess();
    fault.heal(story);
    story.startProcess();
    events.emplace_back("f");
    story.execute("f");
  } else {
    fault.heal(story);
    ASSERT_TRUE(story.advance(1ms));
  }
  EXPECT_TRUE(story.deliverAll());
  expectDelivered(story, events);
  const Texts all = story.server.bodies();
  EXPECT_EQ(all[before.size()], bodyOf("a"));
  expectEachOnce(Texts(all.begin() + static_cast<std::ptrdiff_t>(before.size()), all.end()),
                 events);
  EXPECT_EQ(story.counters().attempts + story.triesOfEndedProcesses, 2 + events.size());
  EXPECT_EQ(story.failures.all().size(), 2u);
  EXPECT_EQ(story.elsewhere.connections(), 0);
  if (fault.order.empty()) return;
  writeFaultRow({fault.order, fault.fault, fault.did, howItWasHeld(story, pauses, healedBefore),
                 story.deliveredByEndedProcesses + story.counters().outbox.delivered,
                 held.outbox.queued, story.counters().outbox.rejected,
                 droppedOf(story.counters().outbox)});
}

}  // namespace jx::test
