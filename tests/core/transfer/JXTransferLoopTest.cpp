// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferLoop.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

#include "jx/platform/JXManualClock.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/core/transfer/JXTransferFixture.h"

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::bodyOf;
using Time = std::chrono::steady_clock::time_point;
using Texts = std::vector<std::string>;

// Answers at once with what it is told, or keeps the requests in flight.
class FakeTransport : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override {
    if (failsToStart) throw std::runtime_error("no memory");
    started.push_back(request);
    inFlight.push_back(std::move(request));
  }
  std::vector<JXHttpResult> poll(std::optional<milliseconds> timeout) override {
    timeouts.push_back(timeout);
    std::vector<JXHttpResult> results;
    if (!answers) return results;
    for (JXHttpRequest& request : inFlight) {
      JXHttpResult result;
      result.request = std::move(request);
      result.outcome = outcome;
      const auto own = statusOf.find(result.request.body);
      if (own != statusOf.end()) result.outcome.status = own->second;
      result.retryAfter = retryAfter;
      if (outcome.status == 0) result.reason = reason;
      results.push_back(std::move(result));
    }
    inFlight.clear();
    return results;
  }
  void wakeUp() noexcept override {}
  void abortAll() noexcept override { inFlight.clear(); }

  bool answers = true;
  bool failsToStart = false;
  JXAttemptResult outcome{200, false};
  std::map<std::string, int> statusOf;  // by body, in place of that of `outcome`
  JXString retryAfter;
  std::string reason = "refused";
  std::vector<JXHttpRequest> started;
  std::vector<JXHttpRequest> inFlight;
  std::vector<std::optional<milliseconds>> timeouts;
};

class TransferLoop : public ::testing::Test {
 protected:
  TransferLoop() {
    setup.outbox = std::make_shared<JXOutbox>(folder.file("outbox"), JXOutboxBounds(), clock);
    setup.clock = clock;
    setup.transport = transport;
    setup.steadyNow = [this] { return now; };
    setup.draw = [] { return 0.5; };
    setup.maintain = [this] { ++maintained; };
    setup.onDelivery = [this](const JXDelivery& delivery) {
      deliveries.push_back(delivery);
      if (throws) throw std::runtime_error("the host's");
    };
    setup.beforeConnecting = [this] { ++probes; };
  }

  JXTransferLoop& loop() {
    if (!loop_) loop_ = std::make_unique<JXTransferLoop>(setup);
    return *loop_;
  }
  void add(const std::string& eventId) {
    setup.outbox->add("https://host/", bodyOf(eventId));
    added = true;
  }
  void turn() {
    loop().take(orders, std::exchange(added, false));
    rest = loop().act();
    loop().waitAndSettle(rest, true);
  }
  std::uint64_t queued() const { return setup.outbox->counters().queued; }

  TemporaryFolder folder;
  std::shared_ptr<JXManualClock> clock = std::make_shared<JXManualClock>(784'111'777'000);
  std::shared_ptr<FakeTransport> transport = std::make_shared<FakeTransport>();
  Time now = Time(1'000s);
  JXTransferSetup setup;
  JXTransferCommands orders;
  JXTransferWait rest;
  bool added = false;
  int maintained = 0;
  int probes = 0;
  bool throws = false;
  std::vector<JXDelivery> deliveries;

 private:
  std::unique_ptr<JXTransferLoop> loop_;
};

TEST_F(TransferLoop, ManyEventsWhileOfflineMakeFewAttempts) {
  transport->outcome = {0, false};
  for (int i = 0; i < 2'050; ++i) {
    add("e");
    turn();
    turn();
    now += 3ms;
  }
  // At 0 s, and after pauses of 0.5, 1 and 2 seconds; the next would be at 7.5 s.
  EXPECT_EQ(4u, transport->started.size());
  EXPECT_EQ(2'050u, queued());
  EXPECT_EQ(4u, loop().attempts());
  EXPECT_EQ(4u, loop().failures());
}

TEST_F(TransferLoop, ARequestOnWhichTheServerStumblesLetsTheOthersBy) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  for (const char* id : {"b", "c", "d", "e", "f"})
    add(id);
  // Three failures with pauses of 0.5, 1 and 2 seconds, then the others.
  for (int i = 0; i < 10; ++i) {
    turn();
    now += 1s;
  }
  EXPECT_EQ(1u, queued());
  Texts delivered;
  for (const JXDelivery& each : deliveries)
    delivered.push_back(each.eventId.toStdString());
  EXPECT_EQ((Texts{"b", "c", "d", "e", "f"}), delivered);
  // From now on it is tried at growing distances, and holds nothing up.
  transport->started.clear();
  for (int i = 0; i < 3'600; ++i) {
    turn();
    now += 1s;
  }
  EXPECT_GE(25u, transport->started.size());
  EXPECT_LE(12u, transport->started.size());
  transport->statusOf.clear();
  now += 300s;
  turn();
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, AFlushTriesWhatIsSetAside) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  for (int i = 0; i < 60; ++i) {
    turn();
    now += 1s;
  }
  ASSERT_EQ(1u, queued());
  transport->statusOf.clear();
  ++orders.flushes;
  turn();
  now += 1s;
  turn();
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, OneProbeThenUpToFourOldestFirst) {
  for (const char* id : {"a", "b", "c", "d", "e", "f"})
    add(id);
  transport->answers = false;
  turn();
  ASSERT_EQ(1u, transport->started.size());
  transport->answers = true;
  turn();
  transport->answers = false;
  turn();
  ASSERT_EQ(5u, transport->started.size());
  transport->answers = true;
  turn();
  turn();
  Texts bodies;
  for (const JXHttpRequest& request : transport->started)
    bodies.push_back(request.body);
  EXPECT_EQ((Texts{bodyOf("a"), bodyOf("b"), bodyOf("c"), bodyOf("d"), bodyOf("e"), bodyOf("f")}),
            bodies);
  EXPECT_EQ(0u, queued());
  EXPECT_EQ(1, probes);
}

TEST_F(TransferLoop, AFailedRequestKeepsItsPlace) {
  add("a");
  add("b");
  transport->outcome = {503, false};
  turn();
  now += 1s;
  transport->outcome = {200, false};
  turn();
  turn();
  ASSERT_EQ(3u, transport->started.size());
  EXPECT_EQ(bodyOf("a"), transport->started[0].body);
  EXPECT_EQ(bodyOf("a"), transport->started[1].body);
  EXPECT_EQ(bodyOf("b"), transport->started[2].body);
  EXPECT_EQ(2, probes);
}

TEST_F(TransferLoop, ARetryAfterDateCountsFromTheTimeOfDay) {
  add("a");
  transport->outcome = {503, false};
  transport->retryAfter = "Sun, 06 Nov 1994 08:50:37 GMT";
  turn();
  now += 60s - 1ms;
  turn();
  EXPECT_EQ(1u, transport->started.size());
  now += 1ms;
  turn();
  EXPECT_EQ(2u, transport->started.size());
}

TEST_F(TransferLoop, TheHostIsToldOfDeliveryAndRejection) {
  add("a");
  turn();
  transport->outcome = {404, false};
  add("b");
  turn();
  ASSERT_EQ(2u, deliveries.size());
  EXPECT_EQ(JXDeliveryOutcome::Delivered, deliveries[0].outcome);
  EXPECT_EQ(JXString("a"), deliveries[0].eventId);
  EXPECT_EQ(200, deliveries[0].status);
  EXPECT_EQ(JXString(), deliveries[0].reason);
  EXPECT_EQ(JXDeliveryOutcome::Rejected, deliveries[1].outcome);
  EXPECT_EQ(JXString("b"), deliveries[1].eventId);
  EXPECT_EQ(404, deliveries[1].status);
  EXPECT_EQ(JXString("HTTP status 404"), deliveries[1].reason);
}

TEST_F(TransferLoop, ARejectionIsOneLogLineWithStatusAndEvent) {
  const test::JXLogCapture log;
  transport->outcome = {400, false};
  add("b-7");
  turn();
  EXPECT_EQ((Texts{"2 Request of event b-7 is rejected and not tried again: HTTP status 400"}),
            log.linesWith("rejected"));
  EXPECT_EQ(1u, setup.outbox->counters().rejected);
}

TEST_F(TransferLoop, ABodyWithoutAnEventIdIsDeliveredToo) {
  setup.outbox->add("https://host/", "no JSON");
  added = true;
  turn();
  ASSERT_EQ(1u, deliveries.size());
  EXPECT_EQ(JXString(), deliveries[0].eventId);
}

TEST_F(TransferLoop, AFailureIsLoggedOnceForEachCause) {
  const test::JXLogCapture log;
  add("a");
  transport->outcome = {0, false};
  for (int i = 0; i < 5; ++i, now += 300s)
    turn();
  transport->outcome = {503, false};
  for (int i = 0; i < 5; ++i, now += 300s)
    turn();
  EXPECT_EQ(1u, log.linesWith("next try in 500 ms: refused").size());
  EXPECT_EQ(1u, log.linesWith("HTTP status 503").size());
  EXPECT_EQ(2u, log.linesWith("3 Requests stay queued").size());
}

TEST_F(TransferLoop, FailuresThatDifferInNumbersOnlyAreOneCause) {
  const test::JXLogCapture log;
  transport->outcome = {0, false};
  add("a");
  for (const char* reason : {"no connection after 12 ms", "no connection after 7 ms", "no name"}) {
    transport->reason = reason;
    turn();
    now += 10min;
  }
  EXPECT_EQ((Texts{"3 Requests stay queued, next try in 500 ms: no connection after 12 ms",
                   "3 Requests stay queued, next try in 2000 ms: no name"}),
            log.linesWith("Requests stay queued"));
}

TEST_F(TransferLoop, WhatACallbackThrowsIsDropped) {
  throws = true;
  setup.maintain = [] { throw 5; };
  setup.beforeConnecting = [] { throw std::runtime_error("hook"); };
  add("a");
  turn();
  now += 1s;
  turn();
  EXPECT_EQ(1u, deliveries.size());
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, DisablingGivesBackWhatIsInFlight) {
  transport->answers = false;
  add("a");
  turn();
  ASSERT_EQ(1u, transport->inFlight.size());
  orders.disabled = true;
  turn();
  EXPECT_EQ(0u, transport->inFlight.size());
  EXPECT_EQ(1u, queued());
  now += 1h;
  turn();
  EXPECT_EQ(1u, transport->started.size());
  orders.disabled = false;
  transport->answers = true;
  turn();
  EXPECT_EQ(0u, queued());
  EXPECT_EQ(0u, loop().failures());
}

TEST_F(TransferLoop, APurgeAbortsWhatIsInFlight) {
  transport->answers = false;
  add("a");
  turn();
  setup.outbox->purge();
  ++orders.purges;
  turn();
  EXPECT_EQ(0u, transport->inFlight.size());
  transport->answers = true;
  add("b");
  turn();
  ASSERT_EQ(2u, transport->started.size());
  EXPECT_EQ(bodyOf("b"), transport->started[1].body);
  ASSERT_EQ(2u, deliveries.size());
  EXPECT_EQ(JXDeliveryOutcome::Dropped, deliveries[0].outcome);
  EXPECT_EQ(JXDeliveryOutcome::Delivered, deliveries[1].outcome);
  EXPECT_EQ(JXString("b"), deliveries[1].eventId);
}

// Dropped events as "id: reason", in the order in which they were told.
Texts told(const std::vector<JXDelivery>& deliveries) {
  Texts texts;
  for (const JXDelivery& each : deliveries) {
    EXPECT_EQ(JXDeliveryOutcome::Dropped, each.outcome);
    EXPECT_EQ(0, each.status);
    texts.push_back(each.eventId.toStdString() + ": " + each.reason.toStdString());
  }
  return texts;
}

TEST_F(TransferLoop, EventsThatTheBoundsDisplaceAreToldWithTheirIds) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 2;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  orders.disabled = true;
  turn();
  for (const char* id : {"a", "b", "c", "d"})
    add(id);
  turn();
  EXPECT_EQ(told(deliveries),
            (Texts{"a: the queue held too many requests", "b: the queue held too many requests"}));
  EXPECT_EQ(JXDropReason::TooMany, deliveries[0].dropReason);
  turn();
  EXPECT_EQ(2u, deliveries.size());
}

TEST_F(TransferLoop, AnEventThatTheQueueDidNotTakeIsToldAsDropped) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 20;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  turn();
  add("large");
  turn();
  EXPECT_EQ(told(deliveries), Texts{"large: the queue held too many bytes"});
  EXPECT_EQ(JXDropReason::TooLarge, deliveries[0].dropReason);
}

TEST_F(TransferLoop, PurgedEventsAreToldWithTheirIds) {
  transport->answers = false;
  turn();
  add("in flight");
  add("queued");
  turn();
  setup.outbox->purge();
  ++orders.purges;
  turn();
  EXPECT_EQ(told(deliveries),
            (Texts{"in flight: the queue was purged", "queued: the queue was purged"}));
  EXPECT_EQ(JXDropReason::Purged, deliveries[1].dropReason);
}

TEST_F(TransferLoop, AnEventDroppedInFlightIsToldOnce) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  for (const int status : {200, 400}) {
    deliveries.clear();
    transport->outcome = {200, false};
    transport->answers = false;
    add("a");
    turn();
    ASSERT_EQ(1u, transport->inFlight.size());
    add("b");
    turn();
    transport->outcome = {status, false};
    transport->answers = true;
    turn();
    ASSERT_LE(1u, deliveries.size());
    EXPECT_EQ(JXDeliveryOutcome::Dropped, deliveries[0].outcome);
    EXPECT_EQ(JXString("a"), deliveries[0].eventId);
    for (std::size_t i = 1; i < deliveries.size(); ++i)
      EXPECT_EQ(JXString("b"), deliveries[i].eventId);
    transport->outcome = {200, false};
    turn();
    EXPECT_EQ(0u, queued());
  }
}

TEST_F(TransferLoop, ACallbackThatMakesTheQueueDropAgainDoesNotKeepTheThread) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  int told = 0;
  setup.onDelivery = [&](const JXDelivery&) {
    ++told;
    setup.outbox->add("https://host/", bodyOf("more"));
  };
  orders.disabled = true;
  turn();
  add("a");
  add("b");
  turn();
  EXPECT_EQ(1, told);
  EXPECT_EQ(now, rest.wakeAt);
  turn();
  EXPECT_EQ(2, told);
}

TEST_F(TransferLoop, ManyDropsAreToldTurnByTurnWithoutASleep) {
  turn();
  for (int i = 0; i < 100; ++i)
    setup.outbox->add("https://host/", bodyOf(std::to_string(i)));
  setup.outbox->purge();
  ++orders.purges;
  int turns = 0;
  do {
    turn();
    ++turns;
  } while (rest.wakeAt == now && turns < 10);
  EXPECT_EQ(5, turns);
  EXPECT_EQ(100u, deliveries.size());
}

TEST_F(TransferLoop, WithoutACallbackNoDropIsRemembered) {
  setup.onDelivery = nullptr;
  turn();
  add("a");
  setup.outbox->purge();
  EXPECT_TRUE(setup.outbox->takeDropped().empty());
}

TEST_F(TransferLoop, StorageIsMadeDurableASecondAfterAChangeWhileARequestHangs) {
  transport->answers = false;
  add("a");
  turn();
  EXPECT_EQ(1'000ms, transport->timeouts.back());
  now += 999ms;
  turn();
  EXPECT_TRUE(setup.outbox->needsSync());
  EXPECT_EQ(0, maintained);
  now += 1ms;
  turn();
  EXPECT_FALSE(setup.outbox->needsSync());
  EXPECT_EQ(1, maintained);
  EXPECT_EQ(std::nullopt, transport->timeouts.back());
}

TEST_F(TransferLoop, AStorageChangeThatWasToldRunsTheMaintenance) {
  turn();
  now += 5s;
  ++orders.storageChanges;
  turn();
  now += 1s;
  turn();
  EXPECT_EQ(1, maintained);
}

TEST_F(TransferLoop, AnIdleLoopWaitsWithoutALimit) {
  add("a");
  turn();
  now += 1s;
  turn();
  turn();
  EXPECT_EQ(std::nullopt, transport->timeouts.back());
}

TEST_F(TransferLoop, ThePauseIsWaitedForInFull) {
  add("a");
  transport->outcome = {0, false};
  turn();
  turn();
  EXPECT_EQ(500ms, transport->timeouts.back());
  now += 499ms + 1us;
  turn();
  EXPECT_EQ(1ms, transport->timeouts.back());
  EXPECT_EQ(1u, transport->started.size());
}

TEST_F(TransferLoop, AFailureInsideGivesBackAndPauses) {
  add("a");
  transport->failsToStart = true;
  loop().take(orders, true);
  EXPECT_THROW(loop().act(), std::runtime_error);
  loop().recover("no memory");
  transport->failsToStart = false;
  turn();
  EXPECT_EQ(0u, transport->started.size());
  now += 500ms;
  turn();
  EXPECT_EQ(1u, transport->started.size());
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, TheEndGivesBackAndMakesDurable) {
  transport->answers = false;
  add("a");
  turn();
  loop().end();
  EXPECT_EQ(0u, transport->inFlight.size());
  EXPECT_FALSE(setup.outbox->needsSync());
  EXPECT_EQ(1, maintained);
  ASSERT_TRUE(setup.outbox->take().has_value());
}

}  // namespace
}  // namespace jx
