// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Consent decides what is sent: tested from `execute` to the server's socket.

#include <gtest/gtest.h>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/events/JXCustomEvent.h"
#include "tests/fault/FacadeScenario.h"
#include "tests/fault/FaultTable.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

constexpr auto kDay = 24h;
// The default behaviour "disabled", which applications set by number.
constexpr std::int32_t kDisabledByDefault = 2;

class Consent : public FacadeScenario {
 protected:
  // Runs all work that is due within a day and expects no connection and no attempt.
  void expectSilenceForADay() {
    const int connections = server.connections();
    const std::size_t requests = server.requests().size();
    const std::uint64_t attempts = counters().attempts;
    ASSERT_TRUE(advance(kDay));
    EXPECT_TRUE(counters().paused);
    EXPECT_EQ(counters().attempts, attempts);
    EXPECT_EQ(server.connections(), connections);
    EXPECT_EQ(server.requests().size(), requests);
  }
  void writeRow(const std::string& order, const std::string& fault, const std::string& did,
                const std::string& library, std::uint64_t queued) const {
    writeFaultRow({order, fault, did, library, counters().outbox.delivered, queued,
                   counters().outbox.rejected, droppedOf(counters().outbox)});
  }
};

TEST_F(Consent, SendsEventsQueuedBeforeConsentUnchanged) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  server.refuse();
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  ASSERT_EQ(serverSide->serverSideState(), EJXServerSideState_WAITING_FOR_CONSENT);
  for (const char* name : {"first", "second"}) {
    const Request waiting = execute(*serverSide, name);
    EXPECT_EQ(waiting.body.get("user").string(), JXString("waiting_for_consent"));
  }
  ASSERT_TRUE(waitForFailedAttempts(1));
  serverSide->enableServerSide();
  EXPECT_TRUE(execute(*serverSide, "third").body.get("user").object().isPresent());
  const std::uint64_t queued = counters().outbox.queued;
  server.accept();
  ASSERT_TRUE(advance(1s));
  EXPECT_TRUE(deliverAll());
  Texts expected = executed();
  expected.insert(expected.begin(), expected.front());  // the failed attempt
  EXPECT_EQ(started(), expected);
  std::uint64_t marked = 0;
  for (const std::string& body : server.bodies())
    marked += body.find("\"waiting_for_consent\"") != std::string::npos ? 1 : 0;
  EXPECT_EQ(marked, 2u);
  EXPECT_EQ(counters().outbox.delivered, 3u);
  writeRow("7.01", "queued while waiting for consent, then enabled",
           "refused connections, then accepted them",
           "sent the queued bytes unchanged: " + std::to_string(marked) +
               " events with the consent marker; the event executed after enabling contained the "
               "user",
           queued);
}

TEST_F(Consent, SendsNothingUntilEnabledWhenDisabledByDefault) {
  leaveFromEarlierProcess({"old 1", "old 2"});
  const auto serverSide = startWith(kDisabledByDefault);
  serverSide->execute(JXCustomEvent::initWithName("ignored"));
  EXPECT_EQ(counters().outbox.queued, 2u) << "execute queues nothing while disabled";
  expectSilenceForADay();
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t queued = counters().outbox.queued;
  serverSide->enableServerSide();
  const Request allowed = execute(*serverSide, "allowed");
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(started(), (Texts{bodyOf("old 1"), bodyOf("old 2"), allowed.text}));
  writeRow(
      "7.02", "disabled by default",
      "was available for a day; 2 requests of an earlier process were queued",
      "made 0 connections and queued nothing new; after enabling, sent the old requests first, "
      "in order",
      queued);
}

// The two ways to give and withdraw consent.
enum class Way { ServerSide, ConsentModule };

std::ostream& operator<<(std::ostream& out, Way way) {
  return out << (way == Way::ServerSide ? "ServerSide" : "ConsentModule");
}

class ConsentSwitch : public Consent, public ::testing::WithParamInterface<Way> {
 protected:
  void stop(ServerSide& serverSide) const {
    if (GetParam() == Way::ServerSide) {
      serverSide.disableServerSide();
    } else {
      post(kJXNotification_StoppingTheServerSide);
    }
  }
  void enable(ServerSide& serverSide) const {
    if (GetParam() == Way::ServerSide) {
      serverSide.enableServerSide();
    } else {
      post(kJXNotification_EnablingTheServerSide);
    }
  }
  // Both ways have the same result, so one row is enough.
  bool writesRow() const { return GetParam() == Way::ConsentModule; }
};

TEST_P(ConsentSwitch, AbortsRequestsInFlightOnStop) {
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
  const std::uint64_t queued = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), Texts(2, executed().front()));
  EXPECT_EQ(counters().failures, 0u) << "an aborted request did not fail";
  if (!writesRow()) return;
  writeRow("7.03", "stop while a request is in flight", "read the request and sent no response",
           "closed the connection (" + std::to_string(server.abandoned()) +
               " seen by the server) and kept the event; after enabling, sent the same bytes",
           queued);
}

TEST_P(ConsentSwitch, CancelsScheduledRetryOnStop) {
  JXTestAnswer busy;
  busy.status = 503;
  server.answerNext(busy);
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  execute(*serverSide, "failed");
  ASSERT_TRUE(waitForFailedAttempts(1));
  stop(*serverSide);
  expectSilenceForADay();
  EXPECT_EQ(counters().attempts, 1u);
  const std::uint64_t queued = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), Texts(2, executed().front()));
  if (!writesRow()) return;
  writeRow("7.04", "stop while a retry is scheduled", "responded with 503",
           "made 0 attempts when the retry was due and for a day; after enabling, delivered",
           queued);
}

TEST_P(ConsentSwitch, KeepsQueueOfEarlierProcessOnStop) {
  leaveFromEarlierProcess({"old 1", "old 2"});
  // An enabled start sends at once; in the background it has not begun when the stop comes.
  manager.onBackground();
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  stop(*serverSide);
  manager.onForeground();
  expectSilenceForADay();
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t queued = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(started(), (Texts{bodyOf("old 1"), bodyOf("old 2")}));
  if (!writesRow()) return;
  writeRow("7.05", "stop with the queue of an earlier process", "was available",
           "made 0 connections; after enabling, delivered in order", queued);
}

TEST_P(ConsentSwitch, DeliversQueuedEventsInOrderWhenEnabled) {
  const auto serverSide = startWith(EJXDefaultBehaviour_DEFAULT);
  platform->enterBackground();
  for (const char* name : {"1", "2", "3", "4", "5", "6"})
    execute(*serverSide, name);
  stop(*serverSide);
  platform->enterForeground();
  expectSilenceForADay();
  EXPECT_EQ(server.connections(), 0);
  const std::uint64_t queued = counters().outbox.queued;
  enable(*serverSide);
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(started(), executed());
  EXPECT_EQ(counters().outbox.delivered, 6u);
  if (!writesRow()) return;
  writeRow("7.06", "stop with a queue of this process", "was available",
           "made 0 connections; after enabling, delivered in order", queued);
}

TEST_P(ConsentSwitch, IgnoresStopWhenAlwaysEnabled) {
  const auto serverSide = startWith(EJXDefaultBehaviour_ALWAYS_ENABLED);
  stop(*serverSide);
  execute(*serverSide, "sent");
  EXPECT_TRUE(deliverAll());
  EXPECT_EQ(server.bodies(), executed());
  EXPECT_FALSE(counters().paused);
  if (!writesRow()) return;
  writeRow("7.07", "stop while always enabled", "was available", "ignored the stop and delivered",
           0);
}

INSTANTIATE_TEST_SUITE_P(Via, ConsentSwitch, ::testing::Values(Way::ServerSide, Way::ConsentModule),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace jx::test
