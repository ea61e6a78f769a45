// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What the viewer said is what leaves the machine: from `execute` to the server's socket.

#include <gtest/gtest.h>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/events/JXCustomEvent.h"
#include "tests/fault/FacadeStory.h"
#include "tests/fault/FaultTable.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

constexpr auto kDay = 24h;
// The default behaviour that a host states by this number.
constexpr std::int32_t kDisabledByDefault = 2;

class Consent : public FacadeStory {
 protected:
  // Whatever is due in a day is done, and the server hears of none of it.
  void expectSilenceForADay() {
    const int connections = server.connections();
    const std::size_t requests = server.requests().size();
    const std::uint64_t tries = counters().attempts;
    ASSERT_TRUE(advance(kDay));
    EXPECT_TRUE(counters().paused);
    EXPECT_EQ(counters().attempts, tries);
    EXPECT_EQ(server.connections(), connections);
    EXPECT_EQ(server.requests().size(), requests);
  }
  void writeRow(const std::string& order, const std::string& fault, const std::string& did,
                const std::string& library, std::uint64_t held) const {
    writeFaultRow({order, fault, did, library, counters().outbox.delivered, held,
                   counters().outbox.rejected, droppedOf(counters().outbox)});
  }
};

TEST_F(Consent, WhatWasQueuedWhileWaitingGoesOutUnchangedAfterEnabling) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  server.refuse();
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  ASSERT_EQ(serverSide->serverSideState(), EJXServerSideState_WAITING_FOR_CONSENT);
  for (const char* name : {"first", "second"}) {
    const Request waiting = execute(*serverSide, name);
    EXPECT_EQ(waiting.body.get("user").string(), JXString("waiting_for_consent"));
  }
  ASSERT_TRUE(waitForFailedTries(1));
  serverSide->enableServerSide();
  EXPECT_TRUE(execute(*serverSide, "third").body.get("user").object().isPresent());
  const std::uint64_t held = counters().outbox.queued;
  server.accept();
  ASSERT_TRUE(advance(1s));
  EXPECT_TRUE(deliverAll());
  Texts expected = executed();
  expected.insert(expected.begin(), expected.front());  // the failed try
  EXPECT_EQ(begun(), expected);
  std::uint64_t marked = 0;
  for (const std::string& body : server.bodies())
    marked += body.find("\"waiting_for_consent\"") != std::string::npos ? 1 : 0;
  EXPECT_EQ(marked, 2u);
  EXPECT_EQ(counters().outbox.delivered, 3u);
  writeRow("7.01", "queued while waiting for consent, then enabled",
           "refused connections, then accepted them",
           "sent the bytes that were queued: " + std::to_string(marked) +
               " with the marker, the one executed after enabling with the user",
           held);
}

TEST_F(Consent, DisabledByDefaultSendsNothingUntilItIsEnabled) {
  leaveFromEarlierProcess({"old 1", "old 2"});
  const auto serverSide = startWith(kDisabledByDefault);
  serverSide->execute(JXCustomEvent::initWithName("ignored"));
  EXPECT_EQ(counters().outbox.queued, 2u) << "execute queues nothing while disabled";
  expectSilenceForADay();
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t held = counters().outbox.queued;
  serverSide->enableServerSide();
  const Request allowed = execute(*serverSide, "allowed");
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(begun(), (Texts{bodyOf("old 1"), bodyOf("old 2"), allowed.text}));
  writeRow("7.02", "disabled by default",
           "ran for a day with 2 requests of an earlier process in the queue",
           "made 0 connections, queued nothing new; enabled, sent the old ones first, in order",
           held);
}

// The two ways in which consent is given and withdrawn.
enum class Way { ThroughTheServerSide, ByAConsentModule };

std::ostream& operator<<(std::ostream& out, Way way) {
  return out << (way == Way::ThroughTheServerSide ? "ThroughTheServerSide" : "ByAConsentModule");
}

class EitherWay : public Consent, public ::testing::WithParamInterface<Way> {
 protected:
  void stop(ServerSide& serverSide) const {
    if (GetParam() == Way::ThroughTheServerSide) {
      serverSide.disableServerSide();
    } else {
      post(kJXNotification_StoppingTheServerSide);
    }
  }
  void enable(ServerSide& serverSide) const {
    if (GetParam() == Way::ThroughTheServerSide) {
      serverSide.enableServerSide();
    } else {
      post(kJXNotification_EnablingTheServerSide);
    }
  }
  // One row is enough where both ways do the same.
  bool writesRow() const { return GetParam() == Way::ByAConsentModule; }
};

TEST_P(EitherWay, AStopAbortsWhatIsInFlight) {
  JXTestAnswer silence;
  silence.manner = JXTestAnswer::Manner::StallBeforeHead;
  server.answerNext(silence);
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  execute(*serverSide, "in flight");
  ASSERT_TRUE(server.waitForRequests(1));
  stop(*serverSide);
  EXPECT_TRUE(server.waitForAbandoned(1));
  serverSide->execute(JXCustomEvent::initWithName("ignored"));
  EXPECT_EQ(counters().outbox.queued, 1u);
  expectSilenceForADay();
  const std::uint64_t held = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), Texts(2, executed().front()));
  EXPECT_EQ(counters().failures, 0u) << "an aborted request did not fail";
  if (!writesRow()) return;
  writeRow("7.03", "stop while a request is in flight", "read the request and said nothing",
           "closed the connection (" + std::to_string(server.abandoned()) +
               " seen by the server) and kept the event; enabled, sent the same bytes",
           held);
}

TEST_P(EitherWay, AStopCancelsTheRetryThatWasScheduled) {
  JXTestAnswer busy;
  busy.status = 503;
  server.answerNext(busy);
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  execute(*serverSide, "failed");
  ASSERT_TRUE(waitForFailedTries(1));
  stop(*serverSide);
  expectSilenceForADay();
  EXPECT_EQ(counters().attempts, 1u);
  const std::uint64_t held = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), Texts(2, executed().front()));
  if (!writesRow()) return;
  writeRow("7.04", "stop while a retry is scheduled", "answered 503",
           "let the time of the retry pass, and a day, with 0 tries; enabled, delivered", held);
}

TEST_P(EitherWay, AStopHoldsWhatAnEarlierProcessLeft) {
  leaveFromEarlierProcess({"old 1", "old 2"});
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  stop(*serverSide);
  expectSilenceForADay();
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t held = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(begun(), (Texts{bodyOf("old 1"), bodyOf("old 2")}));
  if (!writesRow()) return;
  writeRow("7.05", "stop with the queue of an earlier process", "was there all the time",
           "made 0 connections; enabled, delivered in order", held);
}

TEST_P(EitherWay, EnablingReleasesWhatWasHeldInOrder) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  platform->enterBackground();
  for (const char* name : {"1", "2", "3", "4", "5", "6"})
    execute(*serverSide, name);
  stop(*serverSide);
  platform->enterForeground();
  expectSilenceForADay();
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t held = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(begun(), executed());
  EXPECT_EQ(counters().outbox.delivered, 6u);
  if (!writesRow()) return;
  writeRow("7.06", "stop with a queue of this process", "was there all the time",
           "made 0 connections; enabled, delivered in order", held);
}

TEST_P(EitherWay, AlwaysEnabledIgnoresAStop) {
  const auto serverSide = startWith(EJXDefaultBehaviour_ALWAYS_ENABLED);
  stop(*serverSide);
  execute(*serverSide, "sent");
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), executed());
  EXPECT_FALSE(counters().paused);
  if (!writesRow()) return;
  writeRow("7.07", "stop of one that is always enabled", "was there all the time",
           "ignored the stop and delivered", 0);
}

INSTANTIATE_TEST_SUITE_P(Told, EitherWay,
                         ::testing::Values(Way::ThroughTheServerSide, Way::ByAConsentModule),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace jx::test
