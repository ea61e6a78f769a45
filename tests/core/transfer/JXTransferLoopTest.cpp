// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferLoop.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <map>
#include <stdexcept>

#include "jx/platform/JXManualClock.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::bodyOf;
using Time = std::chrono::steady_clock::time_point;
using Texts = std::vector<std::string>;

// Returns the configured response immediately, or keeps the requests in flight.
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
      result.date = date;
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
  std::map<std::string, int> statusOf;  // by body; overrides the status of `outcome`
  JXString retryAfter;
  JXString date;
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
    setup.gatherTime = 0ms;
    setup.maintain = [this] { ++maintained; };
    setup.onDelivery = [this](const JXDelivery& delivery) {
      deliveries.push_back(delivery);
      if (throws) throw std::runtime_error("application");
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
  void runOnce() {
    loop().apply(commands, std::exchange(added, false));
    wait = loop().act();
    loop().complete(loop().poll(wait, true));
  }
  // Runs with small steps of the time, of both clocks.
  void runFor(milliseconds duration, milliseconds step = 1s) {
    for (milliseconds passed{0}; passed < duration; passed += step) {
      runOnce();
      now += step;
      clock->advance(step.count());
    }
  }
  // Ends the process and starts another one with the same storage.
  void restart(const std::string& currentEndpoint = "") {
    loop_.reset();
    setup.outbox.reset();
    setup.outbox = std::make_shared<JXOutbox>(folder.file("outbox"), JXOutboxBounds(), clock,
                                              nullptr, true, currentEndpoint);
  }
  std::uint64_t queued() const { return setup.outbox->counters().queued; }

  TemporaryFolder folder;
  std::shared_ptr<JXManualClock> clock = std::make_shared<JXManualClock>(784'111'777'000);
  std::shared_ptr<FakeTransport> transport = std::make_shared<FakeTransport>();
  Time now = Time(1'000s);
  JXTransferSetup setup;
  JXTransferCommands commands;
  JXTransferWait wait;
  bool added = false;
  int maintained = 0;
  int probes = 0;
  bool throws = false;
  std::vector<JXDelivery> deliveries;

 private:
  std::unique_ptr<JXTransferLoop> loop_;
};

TEST_F(TransferLoop, MakesFewAttemptsForManyEventsWhileOffline) {
  transport->outcome = {0, false};
  for (int i = 0; i < 2'050; ++i) {
    add("e");
    runOnce();
    runOnce();
    now += 3ms;
  }
  // At 0 s, and after backoffs of 0.5, 1 and 2 seconds; the next attempt would be at 7.5 s.
  EXPECT_EQ(4u, transport->started.size());
  EXPECT_EQ(2'050u, queued());
  EXPECT_EQ(4u, loop().attempts());
  EXPECT_EQ(4u, loop().failures());
}

// The thread read its commands before the request was added; a stop may be among the newer ones.
TEST_F(TransferLoop, StartsARequestOnlyWithCommandsThatAreNewer) {
  const std::uint64_t before = setup.outbox->nextId();
  add("e");
  loop().apply(commands, std::exchange(added, false), before);
  loop().act();
  EXPECT_EQ(0u, transport->started.size());
  added = true;
  runOnce();
  EXPECT_EQ(1u, transport->started.size());
}

TEST_F(TransferLoop, RequestFailingRepeatedlyDoesNotBlockOthers) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  for (const char* id : {"b", "c", "d", "e", "f"})
    add(id);
  for (int i = 0; i < 3; ++i)
    runOnce();
  EXPECT_EQ(1u, queued());
  Texts delivered;
  for (const JXDelivery& each : deliveries)
    delivered.push_back(each.eventId.toStdString());
  EXPECT_EQ((Texts{"b", "c", "d", "e", "f"}), delivered);
  // Retried after 1, 3, 7, 15 and 31 minutes.
  transport->started.clear();
  runFor(1h);
  EXPECT_EQ(5u, transport->started.size());
  transport->statusOf.clear();
  runFor(3min + 1s);
  EXPECT_EQ(0u, queued());
}

// Its file was deleted, and the disk does not allow to write it again.
TEST_F(TransferLoop, WaitsForADueRequestThatCannotBeRead) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  runOnce();
  // Closes the file of the failed request.
  for (int i = 0; i < 4; ++i)
    setup.outbox->add("https://collect.example/events", std::string(1'100'000, 'x'));
  runOnce();
  transport->started.clear();
  std::filesystem::remove_all(folder.file("outbox"));
  {
    const FailingDisk disk(0, std::numeric_limits<long>::max(), FailingDisk::Write::Nothing, EIO);
    runFor(3min);
    EXPECT_EQ(0u, transport->started.size());
  }
  transport->statusOf.clear();
  runFor(1min);
  EXPECT_EQ(1u, transport->started.size());
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, RequestOfAnEarlierProcessKeepsItsFailures) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  runFor(8min);  // fails four times; the next retry is due at 15 minutes
  EXPECT_EQ(4u, transport->started.size());
  transport->started.clear();
  restart();
  runFor(7min - 2s);
  EXPECT_EQ(0u, transport->started.size());
  runFor(3s);
  EXPECT_EQ(1u, transport->started.size());
  runFor(16min - 2s);
  EXPECT_EQ(1u, transport->started.size());
  runFor(3s);
  EXPECT_EQ(2u, transport->started.size());
}

TEST_F(TransferLoop, RequestThatFailsForThreeDaysBecomesADeadLetter) {
  const test::JXLogCapture log;
  transport->statusOf[bodyOf("bad")] = 500;
  clock->set(1'790'000'000'000);
  add("bad");
  for (int hour = 0; hour < 71; ++hour)
    runFor(1h, 1min);
  EXPECT_EQ(1u, queued());
  EXPECT_EQ(0u, deliveries.size());
  restart();
  for (int hour = 0; hour < 9; ++hour)
    runFor(1h, 1min);
  EXPECT_EQ(0u, queued());
  ASSERT_EQ(1u, deliveries.size());
  EXPECT_EQ(JXDeliveryOutcome::Rejected, deliveries[0].outcome);
  EXPECT_EQ(500, deliveries[0].status);
  EXPECT_EQ(JXString("bad"), deliveries[0].eventId);
  EXPECT_EQ(1u, setup.outbox->counters().rejected);
  EXPECT_EQ((Texts{"2 Server rejected event bad: HTTP status 500; not retrying"}),
            log.linesWith("rejected"));
}

TEST_F(TransferLoop, NoRequestBecomesADeadLetterWhileTheServerFailsOnEverything) {
  transport->outcome = {500, false};
  clock->set(1'790'000'000'000);
  for (const char* id : {"a", "b", "c", "d", "e"})
    add(id);
  for (int hour = 0; hour < 80; ++hour)
    runFor(1h, 1min);
  restart();
  for (int hour = 0; hour < 20; ++hour)
    runFor(1h, 1min);
  EXPECT_EQ(5u, queued());
  EXPECT_EQ(0u, deliveries.size());
  transport->outcome = {200, false};
  runFor(10min, 1s);
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, LogsAServerErrorOnceWhileOthersAreDelivered) {
  const test::JXLogCapture log;
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  for (int minute = 0; minute < 40; ++minute) {
    add("good");
    runFor(1min);
  }
  EXPECT_EQ((Texts{"3 Delivery failed: HTTP status 500; retrying in 60000 ms"}),
            log.linesWith("Delivery failed"));
  EXPECT_EQ((Texts{"5 Delivery resumed"}), log.linesWith("resumed"));
}

TEST_F(TransferLoop, FlushRetriesDeferredRequests) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  runFor(10s);
  ASSERT_EQ(1u, queued());
  transport->statusOf.clear();
  ++commands.flushes;
  runOnce();
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, FlushingInALoopStartsOneRetryPerSecond) {
  transport->statusOf[bodyOf("bad")] = 500;
  add("bad");
  for (int i = 0; i < 100; ++i) {
    ++commands.flushes;
    runFor(100ms, 100ms);
  }
  EXPECT_GE(transport->started.size(), 9u);
  EXPECT_LE(transport->started.size(), 11u);
}

TEST_F(TransferLoop, FlushDoesNotShortenARetryAfterOfARequest) {
  transport->outcome = {500, false};
  transport->retryAfter = "600";
  add("bad");
  runFor(10s);
  ++commands.flushes;
  runFor(589s);
  EXPECT_EQ(1u, transport->started.size());
  runFor(2s);
  EXPECT_EQ(2u, transport->started.size());
}

TEST_F(TransferLoop, DeadHostDoesNotDelayAnother) {
  for (int i = 0; i < 100; ++i)
    setup.outbox->add("https://dead.example/", bodyOf("old"));
  transport->statusOf[bodyOf("old")] = 0;
  for (int i = 0; i < 100; ++i)
    add("new" + std::to_string(i));
  runFor(40s);
  EXPECT_EQ(100u, deliveries.size());
  EXPECT_EQ(100u, queued());
  EXPECT_LE(transport->started.size(), 110u);
}

TEST_F(TransferLoop, LogsFailuresPerHost) {
  const test::JXLogCapture log;
  transport->outcome = {0, false};
  setup.outbox->add("https://other.example/", bodyOf("b"));
  add("a");
  runFor(1h);
  EXPECT_EQ(2u, log.linesWith("3 Delivery failed: refused").size());
}

TEST_F(TransferLoop, SendsTheQueueToTheCurrentHost) {
  setup.outbox->add("https://old.example:8443/events?s=1", bodyOf("a"));
  setup.outbox = nullptr;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("outbox"), JXOutboxBounds(), clock, nullptr,
                                            true, "https://new.example");
  runOnce();
  ASSERT_EQ(1u, transport->started.size());
  EXPECT_EQ("https://new.example/events?s=1", transport->started[0].url);
}

TEST_F(TransferLoop, KeepsRequestsOfAnInvalidHostQueued) {
  setup.outbox->add("invalid://two%20words/events?s=1", bodyOf("a"));
  add("b");
  runFor(1h);
  EXPECT_EQ(1u, transport->started.size());
  EXPECT_EQ(1u, queued());
  restart("https://new.example");
  runFor(2s);
  ASSERT_EQ(2u, transport->started.size());
  EXPECT_EQ("https://new.example/events?s=1", transport->started[1].url);
}

TEST_F(TransferLoop, SendsOneProbeThenUpToFourOldestFirst) {
  for (const char* id : {"a", "b", "c", "d", "e", "f"})
    add(id);
  transport->answers = false;
  runOnce();
  ASSERT_EQ(1u, transport->started.size());
  transport->answers = true;
  runOnce();
  transport->answers = false;
  runOnce();
  ASSERT_EQ(5u, transport->started.size());
  transport->answers = true;
  runOnce();
  runOnce();
  Texts bodies;
  for (const JXHttpRequest& request : transport->started)
    bodies.push_back(request.body);
  EXPECT_EQ((Texts{bodyOf("a"), bodyOf("b"), bodyOf("c"), bodyOf("d"), bodyOf("e"), bodyOf("f")}),
            bodies);
  EXPECT_EQ(0u, queued());
  EXPECT_EQ(1, probes);
}

TEST_F(TransferLoop, FailedRequestKeepsItsPosition) {
  add("a");
  add("b");
  transport->outcome = {503, false};
  runOnce();
  now += 1s;
  transport->outcome = {200, false};
  runOnce();
  runOnce();
  ASSERT_EQ(3u, transport->started.size());
  EXPECT_EQ(bodyOf("a"), transport->started[0].body);
  EXPECT_EQ(bodyOf("a"), transport->started[1].body);
  EXPECT_EQ(bodyOf("b"), transport->started[2].body);
  EXPECT_EQ(2, probes);
}

TEST_F(TransferLoop, ComparesARetryAfterDateWithTheDateOfTheResponse) {
  clock->set(0);
  add("a");
  transport->outcome = {503, false};
  transport->retryAfter = "Sun, 06 Nov 1994 09:49:37 GMT";
  transport->date = "Sun, 06 Nov 1994 08:49:37 GMT";
  runOnce();
  now += 1h - 1ms;
  runOnce();
  EXPECT_EQ(1u, transport->started.size());
  now += 1ms;
  runOnce();
  EXPECT_EQ(2u, transport->started.size());
}

TEST_F(TransferLoop, LimitsARetryAfterDateWithoutADateToTheLongestBackoff) {
  clock->set(0);
  add("a");
  transport->outcome = {503, false};
  transport->retryAfter = "Sun, 06 Nov 1994 09:49:37 GMT";
  runOnce();
  now += 5min - 1ms;
  runOnce();
  EXPECT_EQ(1u, transport->started.size());
  now += 1ms;
  runOnce();
  EXPECT_EQ(2u, transport->started.size());
}

TEST_F(TransferLoop, ComparesARetryAfterDateWithTheTimeOfDay) {
  add("a");
  transport->outcome = {503, false};
  transport->retryAfter = "Sun, 06 Nov 1994 08:50:37 GMT";
  runOnce();
  now += 60s - 1ms;
  runOnce();
  EXPECT_EQ(1u, transport->started.size());
  now += 1ms;
  runOnce();
  EXPECT_EQ(2u, transport->started.size());
}

TEST_F(TransferLoop, ReportsDeliveredAndRejectedEvents) {
  add("a");
  runOnce();
  transport->outcome = {404, false};
  add("b");
  runOnce();
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

TEST_F(TransferLoop, LogsARejectionOnceWithStatusAndEventId) {
  const test::JXLogCapture log;
  transport->outcome = {400, false};
  add("b-7");
  runOnce();
  EXPECT_EQ((Texts{"2 Server rejected event b-7: HTTP status 400; not retrying"}),
            log.linesWith("rejected"));
  EXPECT_EQ(1u, setup.outbox->counters().rejected);
}

TEST_F(TransferLoop, DeliversABodyWithoutAnEventId) {
  setup.outbox->add("https://host/", "no JSON");
  added = true;
  runOnce();
  ASSERT_EQ(1u, deliveries.size());
  EXPECT_EQ(JXString(), deliveries[0].eventId);
}

TEST_F(TransferLoop, LogsAFailureOncePerCause) {
  const test::JXLogCapture log;
  add("a");
  transport->outcome = {0, false};
  for (int i = 0; i < 5; ++i, now += 300s)
    runOnce();
  transport->outcome = {503, false};
  for (int i = 0; i < 5; ++i, now += 300s)
    runOnce();
  EXPECT_EQ(1u, log.linesWith("Delivery failed: refused; retrying in 500 ms").size());
  EXPECT_EQ(1u, log.linesWith("HTTP status 503").size());
  EXPECT_EQ(2u, log.linesWith("3 Delivery failed").size());
}

TEST_F(TransferLoop, TreatsFailuresThatDifferOnlyInDigitsAsOneCause) {
  const test::JXLogCapture log;
  transport->outcome = {0, false};
  add("a");
  for (const char* reason : {"no connection after 12 ms", "no connection after 7 ms", "no name"}) {
    transport->reason = reason;
    runOnce();
    now += 10min;
  }
  EXPECT_EQ((Texts{"3 Delivery failed: no connection after 12 ms; retrying in 500 ms",
                   "3 Delivery failed: no name; retrying in 2000 ms"}),
            log.linesWith("Delivery failed"));
}

TEST_F(TransferLoop, IgnoresExceptionsOfCallbacks) {
  throws = true;
  setup.maintain = [] { throw 5; };
  setup.beforeConnecting = [] { throw std::runtime_error("hook"); };
  add("a");
  runOnce();
  now += 1s;
  runOnce();
  EXPECT_EQ(1u, deliveries.size());
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, StopRequeuesRequestsInFlight) {
  transport->answers = false;
  add("a");
  runOnce();
  ASSERT_EQ(1u, transport->inFlight.size());
  commands.filter = std::make_shared<const JXSendFilter>(true, std::vector<JXSendFilter::Rule>(),
                                                         std::vector<JXStopMark>(), false);
  ++commands.suspensions;
  runOnce();
  EXPECT_EQ(0u, transport->inFlight.size());
  EXPECT_EQ(1u, queued());
  now += 1h;
  runOnce();
  EXPECT_EQ(1u, transport->started.size());
  commands.filter = nullptr;
  transport->answers = true;
  runOnce();
  EXPECT_EQ(0u, queued());
  EXPECT_EQ(0u, loop().failures());
}

TEST_F(TransferLoop, PurgeAbortsRequestsInFlight) {
  transport->answers = false;
  add("a");
  runOnce();
  setup.outbox->purge();
  ++commands.purges;
  runOnce();
  EXPECT_EQ(0u, transport->inFlight.size());
  transport->answers = true;
  add("b");
  runOnce();
  ASSERT_EQ(2u, transport->started.size());
  EXPECT_EQ(bodyOf("b"), transport->started[1].body);
  ASSERT_EQ(2u, deliveries.size());
  EXPECT_EQ(JXDeliveryOutcome::Dropped, deliveries[0].outcome);
  EXPECT_EQ(JXDeliveryOutcome::Delivered, deliveries[1].outcome);
  EXPECT_EQ(JXString("b"), deliveries[1].eventId);
}

// Returns the dropped events as "id: reason", in the order of their reports.
Texts reported(const std::vector<JXDelivery>& deliveries) {
  Texts reports;
  for (const JXDelivery& each : deliveries) {
    EXPECT_EQ(JXDeliveryOutcome::Dropped, each.outcome);
    EXPECT_EQ(0, each.status);
    reports.push_back(each.eventId.toStdString() + ": " + each.reason.toStdString());
  }
  return reports;
}

TEST_F(TransferLoop, ReportsEvictedEventsWithTheirIds) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 2;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  commands.inBackground = true;
  runOnce();
  for (const char* id : {"a", "b", "c", "d"})
    add(id);
  runOnce();
  EXPECT_EQ(reported(deliveries), (Texts{"a: queue limit exceeded: number of requests",
                                         "b: queue limit exceeded: number of requests"}));
  EXPECT_EQ(JXDropReason::TooMany, deliveries[0].dropReason);
  runOnce();
  EXPECT_EQ(2u, deliveries.size());
}

TEST_F(TransferLoop, ReportsAnEventThatTheQueueDidNotAcceptAsDropped) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 20;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  runOnce();
  add("large");
  runOnce();
  EXPECT_EQ(reported(deliveries), Texts{"large: queue limit exceeded: size in bytes"});
  EXPECT_EQ(JXDropReason::TooLarge, deliveries[0].dropReason);
}

TEST_F(TransferLoop, ReportsPurgedEventsWithTheirIds) {
  transport->answers = false;
  runOnce();
  add("in flight");
  add("queued");
  runOnce();
  setup.outbox->purge();
  ++commands.purges;
  runOnce();
  EXPECT_EQ(reported(deliveries), (Texts{"in flight: queue purged", "queued: queue purged"}));
  EXPECT_EQ(JXDropReason::Purged, deliveries[1].dropReason);
}

TEST_F(TransferLoop, ReportsAnEventInFlightBeyondTheLimitsOnceByItsResponse) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  for (const int status : {200, 400}) {
    deliveries.clear();
    transport->answers = false;
    add("a");
    runOnce();
    ASSERT_EQ(1u, transport->inFlight.size());
    add("b");
    runOnce();
    EXPECT_EQ(0u, deliveries.size());
    transport->statusOf[bodyOf("a")] = status;
    transport->answers = true;
    runOnce();
    runOnce();
    EXPECT_EQ(0u, queued());
    ASSERT_EQ(2u, deliveries.size());
    EXPECT_EQ(JXString("a"), deliveries[0].eventId);
    EXPECT_EQ(status, deliveries[0].status);
    EXPECT_EQ(JXString("b"), deliveries[1].eventId);
    EXPECT_EQ(200, deliveries[1].status);
  }
}

TEST_F(TransferLoop, DropsAnEventBeyondTheLimitsWhenItsAttemptFailed) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  transport->answers = false;
  add("a");
  runOnce();
  add("b");
  runOnce();
  transport->outcome = {503, false};
  transport->answers = true;
  runOnce();
  runOnce();
  ASSERT_EQ(1u, deliveries.size());
  EXPECT_EQ(JXDeliveryOutcome::Dropped, deliveries[0].outcome);
  EXPECT_EQ(JXString("a"), deliveries[0].eventId);
  EXPECT_EQ(1u, queued());
}

TEST_F(TransferLoop, CallbackThatCausesDropsDoesNotBlockTheThread) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  setup.outbox = std::make_shared<JXOutbox>(folder.file("small"), bounds, clock);
  int reports = 0;
  setup.onDelivery = [&](const JXDelivery&) {
    ++reports;
    setup.outbox->add("https://host/", bodyOf("more"));
  };
  commands.inBackground = true;
  runOnce();
  add("a");
  add("b");
  runOnce();
  EXPECT_EQ(1, reports);
  EXPECT_EQ(now, wait.wakeAt);
  runOnce();
  EXPECT_EQ(2, reports);
}

TEST_F(TransferLoop, ReportsManyDropsInBatchesWithoutSleeping) {
  runOnce();
  for (int i = 0; i < 100; ++i)
    setup.outbox->add("https://host/", bodyOf(std::to_string(i)));
  setup.outbox->purge();
  ++commands.purges;
  int runs = 0;
  do {
    runOnce();
    ++runs;
  } while (wait.wakeAt == now && runs < 10);
  EXPECT_EQ(5, runs);
  EXPECT_EQ(100u, deliveries.size());
}

TEST_F(TransferLoop, DoesNotRememberDropsWithoutACallback) {
  setup.onDelivery = nullptr;
  runOnce();
  add("a");
  setup.outbox->purge();
  EXPECT_TRUE(setup.outbox->takeDropped().empty());
}

TEST_F(TransferLoop, SyncsASecondAfterAChangeWhileARequestHangs) {
  transport->answers = false;
  add("a");
  runOnce();
  EXPECT_EQ(1'000ms, transport->timeouts.back());
  now += 999ms;
  runOnce();
  EXPECT_TRUE(setup.outbox->needsSync());
  EXPECT_EQ(0, maintained);
  now += 1ms;
  runOnce();
  EXPECT_FALSE(setup.outbox->needsSync());
  EXPECT_EQ(1, maintained);
  EXPECT_EQ(std::nullopt, transport->timeouts.back());
}

TEST_F(TransferLoop, RunsMaintenanceAfterAStorageChange) {
  runOnce();
  now += 5s;
  ++commands.storageChanges;
  runOnce();
  now += 1s;
  runOnce();
  EXPECT_EQ(1, maintained);
}

TEST_F(TransferLoop, WaitsWithoutATimeoutWhenIdle) {
  add("a");
  runOnce();
  now += 1s;
  runOnce();
  runOnce();
  EXPECT_EQ(std::nullopt, transport->timeouts.back());
}

TEST_F(TransferLoop, WaitsForTheFullBackoff) {
  add("a");
  transport->outcome = {0, false};
  runOnce();
  runOnce();
  EXPECT_EQ(500ms, transport->timeouts.back());
  now += 499ms + 1us;
  runOnce();
  EXPECT_EQ(1ms, transport->timeouts.back());
  EXPECT_EQ(1u, transport->started.size());
}

TEST_F(TransferLoop, RequeuesAndBacksOffAfterAnInternalFailure) {
  add("a");
  transport->failsToStart = true;
  loop().apply(commands, true);
  EXPECT_THROW(loop().act(), std::runtime_error);
  loop().recover("no memory");
  transport->failsToStart = false;
  runOnce();
  EXPECT_EQ(0u, transport->started.size());
  now += 500ms;
  runOnce();
  EXPECT_EQ(1u, transport->started.size());
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, LogsARepeatedInternalFailureOnce) {
  const test::JXLogCapture log;
  loop().recover("no memory");
  loop().recover("no memory");
  loop().recover("no socket");
  EXPECT_EQ((Texts{"3 Transfer thread error: no memory; in-flight requests requeued",
                   "3 Transfer thread error: no socket; in-flight requests requeued"}),
            log.linesWith("Transfer thread error"));
}

TEST_F(TransferLoop, IgnoresAResultForARequestThatIsNotInFlight) {
  const test::JXLogCapture log;
  transport->answers = false;
  add("a");
  runOnce();
  JXHttpResult stray;
  stray.request.id = transport->inFlight.front().id + 1;
  stray.outcome.status = 200;
  loop().complete({stray});
  EXPECT_EQ(1u, queued());
  EXPECT_EQ(0u, deliveries.size());
  EXPECT_EQ(Texts{"3 Transport returned a result for a request that is not in flight; ignored"},
            log.linesWith("Transport"));
}

TEST_F(TransferLoop, CompletesARequestOnceWhenItsResultIsRepeated) {
  transport->answers = false;
  add("a");
  runOnce();
  JXHttpResult result;
  result.request = transport->inFlight.front();
  result.outcome.status = 200;
  loop().complete({result, result});
  EXPECT_EQ(0u, queued());
  ASSERT_EQ(1u, deliveries.size());
  EXPECT_EQ(JXString("a"), deliveries.front().eventId);
}

TEST_F(TransferLoop, RetriesARequestWhoseStatusIsNotAnHttpStatus) {
  const test::JXLogCapture log;
  add("a");
  for (const int status : {-1, 99}) {
    transport->outcome.status = status;
    runOnce();
    now += 10s;
  }
  EXPECT_EQ(2u, transport->started.size());
  EXPECT_EQ(1u, queued());
  EXPECT_EQ(0u, deliveries.size());
  EXPECT_EQ(Texts{"3 Delivery failed: no response; retrying in 500 ms"},
            log.linesWith("Delivery failed"));
}

TEST_F(TransferLoop, EndRequeuesAndSyncs) {
  transport->answers = false;
  add("a");
  runOnce();
  loop().end();
  EXPECT_EQ(0u, transport->inFlight.size());
  EXPECT_FALSE(setup.outbox->needsSync());
  EXPECT_EQ(1, maintained);
  ASSERT_TRUE(setup.outbox->take().has_value());
}

// Delivers the first event and finds the queue empty: further ones are gathered from then on.
class GatheringLoop : public TransferLoop {
 protected:
  GatheringLoop() {
    setup.gatherTime = 10ms;
    add("first");
    runOnce();
    runOnce();
    EXPECT_EQ(1u, transport->started.size());
    transport->answers = false;
  }
  Texts startedLater() const {
    Texts bodies;
    for (std::size_t i = 1; i < transport->started.size(); ++i)
      bodies.push_back(transport->started[i].body);
    return bodies;
  }
};

TEST_F(GatheringLoop, StartsRequestsTogetherThatWereAddedShortlyAfterOthers) {
  EXPECT_EQ(now + 10ms, wait.wakeAt);
  EXPECT_TRUE(wait.ignoresAdditions);
  add("b");
  now += 4ms;
  add("c");
  now += 5ms;
  runOnce();
  EXPECT_EQ(Texts{}, startedLater());
  EXPECT_EQ(now + 1ms, wait.wakeAt);
  EXPECT_TRUE(wait.ignoresAdditions);
  now += 1ms;
  runOnce();
  EXPECT_EQ((Texts{bodyOf("b"), bodyOf("c")}), startedLater());
}

TEST_F(GatheringLoop, SleepsWhenNothingWasAdded) {
  const Time delivered = now;
  now += 10ms;
  runOnce();
  // Only the sync is left. The next addition wakes the thread and is started immediately.
  EXPECT_EQ(delivered + 1s, wait.wakeAt);
  EXPECT_FALSE(wait.ignoresAdditions);
  add("b");
  runOnce();
  EXPECT_EQ(Texts{bodyOf("b")}, startedLater());
  now += 1s;
  transport->answers = true;
  runOnce();
  now += 1s;
  runOnce();
  EXPECT_EQ(std::nullopt, wait.wakeAt);
}

// Otherwise more than a second could pass before the request is synced.
TEST_F(GatheringLoop, IsWokenByAnAdditionIfNoSyncIsDue) {
  now += 1s;
  add("b");
  runOnce();  // syncs, and starts the request
  EXPECT_EQ(Texts{bodyOf("b")}, startedLater());
  EXPECT_EQ(now + 10ms, wait.wakeAt);
  EXPECT_FALSE(wait.ignoresAdditions);
}

TEST_F(GatheringLoop, FlushStartsGatheredRequests) {
  add("b");
  ++commands.flushes;
  runOnce();
  EXPECT_EQ(Texts{bodyOf("b")}, startedLater());
}

TEST_F(GatheringLoop, StartsGatheredRequestsBeforeTheBackground) {
  add("b");
  commands.inBackground = true;
  commands.backgroundFrom = setup.outbox->nextId();
  add("in the background");
  runOnce();
  runFor(1s, 100ms);
  EXPECT_EQ(Texts{bodyOf("b")}, startedLater());
  commands.inBackground = false;
  runOnce();
  EXPECT_EQ((Texts{bodyOf("b"), bodyOf("in the background")}), startedLater());
}

TEST_F(GatheringLoop, StopHoldsGatheredRequests) {
  add("b");
  ++commands.suspensions;
  commands.filter = std::make_shared<JXSendFilter>(true, std::vector<JXSendFilter::Rule>(),
                                                   std::vector<JXStopMark>(), false);
  commands.inBackground = true;
  commands.backgroundFrom = setup.outbox->nextId();
  runOnce();
  commands.inBackground = false;
  runFor(1s, 100ms);
  EXPECT_EQ(Texts{}, startedLater());
}

TEST_F(GatheringLoop, DoesNotDelayABacklog) {
  transport->answers = true;
  for (int i = 0; i < 20; ++i)
    add("e");
  now += 10ms;
  for (int i = 0; i < 5; ++i)
    runOnce();
  EXPECT_EQ(0u, queued());
}

TEST_F(TransferLoop, RecordsTheResponsesOfAPollWithOneWrite) {
  add("first");
  runOnce();
  for (int i = 0; i < 4; ++i)
    add("e");
  loop().apply(commands, true);
  wait = loop().act();
  ASSERT_EQ(4u, transport->inFlight.size());
  std::vector<JXHttpResult> results = loop().poll(wait, true);
  const FailingDisk disk(0, 0, FailingDisk::Write::Nothing);
  loop().complete(std::move(results));
  EXPECT_EQ(1, disk.calls());
  EXPECT_EQ(0u, queued());
  EXPECT_EQ(5u, deliveries.size());
}

TEST_F(TransferLoop, CompletesAllResponsesOfMultiplexedConnections) {
  transport->outcome.isMultiplexed = true;
  for (int i = 0; i < 9; ++i) {
    add("e");
    setup.outbox->add("https://other/", bodyOf("f"));
  }
  runOnce();
  ASSERT_EQ(2u, transport->started.size());
  runOnce();
  EXPECT_EQ(18u, transport->started.size());
  EXPECT_EQ(0u, queued());
  EXPECT_EQ(18u, deliveries.size());
}

}  // namespace
}  // namespace jx
