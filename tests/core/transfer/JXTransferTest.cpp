// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransfer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/transfer/JXCurlTransport.h"
#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/support/JXTestServer.h"

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::bodyOf;
using test::JXCollected;
using test::JXTestAnswer;
using test::JXTestServer;
using Manner = JXTestAnswer::Manner;
using Texts = std::vector<std::string>;

constexpr milliseconds kLong = 20s;

JXTestAnswer answerOf(Manner manner, int status = 200) {
  JXTestAnswer answer;
  answer.manner = manner;
  answer.status = status;
  return answer;
}

class Transfer : public ::testing::Test {
 protected:
  Transfer() {
    setup.outbox = std::make_shared<JXOutbox>(outboxFolder, JXOutboxBounds(),
                                              std::make_shared<JXSystemClock>());
    setup.clock = std::make_shared<JXSystemClock>();
    setup.caFile = server.caFile();
    setup.timings.initialBackoff = 1ms;
    setup.timings.maxBackoff = 10ms;
    setup.timings.syncDelay = 1ms;
    setup.onDelivery = [this](const JXDelivery& delivery) { deliveries.add(delivery); };
    setup.maintain = [this] { maintained.add(1); };
    setup.beforeConnecting = [this] { probes.add(1); };
  }
  ~Transfer() override {
    if (transfer) transfer->stop(JXTransfer::kStopLimit);
  }

  void start() {
    transfer = std::make_shared<JXTransfer>(setup);
    transfer->start();
  }
  void enqueue(const std::string& eventId) { transfer->enqueue(server.url(), bodyOf(eventId)); }
  std::uint64_t queued() const { return setup.outbox->counters().queued; }
  // Waits until the thread has done everything that was due when this was called.
  bool waitForThread() {
    const std::size_t before = maintained.all().size();
    transfer->storageChanged();
    return maintained.waitFor(before + 1);
  }

  TemporaryFolder folder;
  const std::string outboxFolder = folder.file("outbox");
  const std::shared_ptr<const JXSendFilter> nothing = std::make_shared<const JXSendFilter>(
      true, std::vector<JXSendFilter::Rule>(), std::vector<JXStopMark>(), false);
  JXTestServer server;
  JXCollected<JXDelivery> deliveries;
  JXCollected<int> maintained;
  JXCollected<int> probes;
  JXTransferSetup setup;
  std::shared_ptr<JXTransfer> transfer;
};

TEST_F(Transfer, DeliversEveryRequestOnce) {
  start();
  std::multiset<std::string> expected;
  for (int i = 0; i < 200; ++i) {
    enqueue(std::to_string(i));
    expected.insert(bodyOf(std::to_string(i)));
  }
  EXPECT_TRUE(transfer->flush(kLong));
  const Texts bodies = server.bodies();
  EXPECT_EQ(expected, std::multiset<std::string>(bodies.begin(), bodies.end()));
  EXPECT_LE(server.connections(), 4);
  const JXDeliveryCounters counters = transfer->counters();
  EXPECT_EQ(200u, counters.outbox.delivered);
  EXPECT_EQ(200u, counters.attempts);
  EXPECT_EQ(0u, counters.failures);
  EXPECT_FALSE(counters.paused);
}

TEST_F(Transfer, DeliversRequestsOfAnEarlierProcess) {
  setup.outbox->add(server.url(), bodyOf("old"));
  start();
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ(Texts{bodyOf("old")}, server.bodies());
}

TEST_F(Transfer, SendsSequentialRequestsInOrderOverOneConnection) {
  start();
  Texts expected;
  for (int i = 0; i < 20; ++i) {
    enqueue(std::to_string(i));
    expected.push_back(bodyOf(std::to_string(i)));
    ASSERT_TRUE(transfer->flush(kLong));
  }
  EXPECT_EQ(expected, server.bodies());
  EXPECT_EQ(1, server.connections());
}

TEST_F(Transfer, SendsTheSameBytesInEveryAttempt) {
  server.answerNext(answerOf(Manner::Whole, 503));
  server.answerNext(answerOf(Manner::Reset));
  server.answerNext(answerOf(Manner::Rubbish));
  server.answerNext(answerOf(Manner::Whole, 429));
  start();
  enqueue("same");
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ(Texts(5, bodyOf("same")), server.bodies());
  // A reused connection that is reset may have been idle for too long, so libcurl sends the request
  // again on a new connection: one attempt, two requests.
  EXPECT_EQ(4u, transfer->counters().attempts);
  EXPECT_EQ(3u, transfer->counters().failures);
  EXPECT_EQ(1u, deliveries.all().size());
}

TEST_F(Transfer, KeepsTheRequestAfterAnInvalidCertificate) {
  const test::JXTestAuthority other;
  setup.caFile = other.caFile();
  start();
  enqueue("kept");
  ASSERT_TRUE(probes.waitFor(3));
  EXPECT_TRUE(transfer->stop(kLong));
  EXPECT_EQ(1u, queued());
  EXPECT_EQ(0u, server.requests().size());
  EXPECT_EQ(0u, deliveries.all().size());
}

TEST_F(Transfer, LogsAMissingCaFileOnceAndKeepsTheRequest) {
  const test::JXLogCapture log;
  setup.caFile = "/nowhere/ca.pem";
  start();
  enqueue("kept");
  ASSERT_TRUE(probes.waitFor(4));
  EXPECT_TRUE(transfer->stop(kLong));
  EXPECT_EQ(1u, queued());
  const Texts lines = log.linesWith("CA file /nowhere/ca.pem is missing");
  ASSERT_EQ(1u, lines.size());
  EXPECT_EQ('3', lines.front().front());
}

TEST_F(Transfer, RejectsPlainHttpToOtherHostsWithALogMessage) {
  const test::JXLogCapture log;
  start();
  transfer->enqueue("http://collect.example/events", bodyOf("plain"));
  ASSERT_TRUE(deliveries.waitFor(1));
  EXPECT_EQ(JXDeliveryOutcome::Rejected, deliveries.all().front().outcome);
  EXPECT_EQ(0, deliveries.all().front().status);
  EXPECT_EQ(Texts{"2 Event plain cannot be sent: URL scheme must be https, not http; not retrying"},
            log.linesWith("cannot be sent"));
  EXPECT_EQ(0u, queued());
}

TEST_F(Transfer, RejectsARedirectWithoutRetrying) {
  JXTestAnswer redirect = answerOf(Manner::Whole, 302);
  redirect.headers = {{"Location", server.url("/elsewhere")}};
  server.answerNext(redirect);
  start();
  enqueue("moved");
  EXPECT_TRUE(transfer->flush(kLong));
  enqueue("next");
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ((Texts{bodyOf("moved"), bodyOf("next")}), server.bodies());
  std::string error;
  const std::vector<JXOutboxListing> dead = listDeadLetters(outboxFolder, error);
  ASSERT_EQ(1u, dead.size());
  EXPECT_EQ(302, dead.front().status);
  EXPECT_EQ(bodyOf("moved"), dead.front().body);
}

TEST_F(Transfer, DeliversOnceDespiteAnEndlessResponse) {
  server.answerNext(answerOf(Manner::EndlessBody));
  start();
  enqueue("endless");
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ(1u, server.requests().size());
}

TEST_F(Transfer, RetriesARequestThatTimedOut) {
  setup.timings.requestTimeout = 200ms;
  server.answerNext(answerOf(Manner::StallBeforeHead));
  start();
  enqueue("late");
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ(2u, server.requests().size());
  EXPECT_GE(transfer->counters().failures, 1u);
}

TEST_F(Transfer, DeliversEverythingOnceWhenTheServerIsBack) {
  server.refuse();
  start();
  std::set<std::string> expected;
  for (int i = 0; i < 50; ++i) {
    enqueue(std::to_string(i));
    expected.insert(bodyOf(std::to_string(i)));
  }
  ASSERT_TRUE(probes.waitFor(3));
  server.accept();
  EXPECT_TRUE(transfer->flush(kLong));
  const Texts bodies = server.bodies();
  EXPECT_EQ(50u, bodies.size());
  EXPECT_EQ(expected, std::set<std::string>(bodies.begin(), bodies.end()));
  EXPECT_EQ(bodyOf("0"), bodies.front());
}

TEST_F(Transfer, StopsInTimeAndKeepsAHangingRequest) {
  server.answerAll(answerOf(Manner::StallBeforeHead));
  start();
  enqueue("hangs");
  ASSERT_TRUE(server.waitForRequests(1));
  EXPECT_TRUE(transfer->stop(JXTransfer::kStopLimit));
  EXPECT_TRUE(transfer->stop(0ms));
  EXPECT_EQ(1u, queued());
  EXPECT_TRUE(setup.outbox->take().has_value());
  EXPECT_EQ(0u, deliveries.all().size());
}

TEST_F(Transfer, KeepsARequestAddedAfterTheStop) {
  start();
  EXPECT_TRUE(transfer->stop(kLong));
  enqueue("kept");
  EXPECT_EQ(1u, queued());
  EXPECT_FALSE(transfer->flush(0ms));
}

TEST_F(Transfer, StopsWhenItWasNeverStarted) {
  transfer = std::make_shared<JXTransfer>(setup);
  EXPECT_TRUE(transfer->stop(0ms));
}

TEST_F(Transfer, SendsARequestThatIsAddedWhileTheThreadReadsItsCommands) {
  start();
  std::atomic<bool> ends{false};
  std::thread busy([&] {
    while (!ends)
      transfer->storageChanged();
  });
  bool areSent = true;
  for (int i = 0; i < 300 && areSent; ++i) {
    enqueue("a");
    areSent = transfer->flush(20s);
  }
  ends = true;
  busy.join();
  EXPECT_TRUE(areSent);
}

TEST_F(Transfer, FlushEndsAtItsDeadlineWithoutAResponse) {
  server.answerAll(answerOf(Manner::StallBeforeHead));
  start();
  enqueue("hangs");
  ASSERT_TRUE(server.waitForRequests(1));
  EXPECT_FALSE(transfer->flush(30ms));
  EXPECT_FALSE(transfer->flush(0ms));
  EXPECT_FALSE(transfer->flush(-5ms));
  server.answerAll({});
  server.dropConnections();
  EXPECT_TRUE(transfer->flush(milliseconds::max()));
}

TEST_F(Transfer, FlushOfAnEmptyQueueReturnsImmediately) {
  start();
  EXPECT_TRUE(transfer->flush(0ms));
}

TEST_F(Transfer, FlushDoesNotShortenARetryAfter) {
  JXTestAnswer busy = answerOf(Manner::Whole, 503);
  busy.headers = {{"Retry-After", "3600"}};
  server.answerAll(busy);
  start();
  enqueue("later");
  ASSERT_TRUE(server.waitForRequests(1));
  EXPECT_FALSE(transfer->flush(50ms));
  EXPECT_EQ(1u, server.requests().size());
}

TEST_F(Transfer, FlushDoesNotRetryBeforeTheInitialBackoff) {
  setup.timings.initialBackoff = 10min;
  setup.timings.maxBackoff = 1h;
  setup.draw = [] { return 0.9; };
  auto offset = std::make_shared<std::atomic<int>>(0);
  setup.steadyNow = [offset] {
    return std::chrono::steady_clock::now() + std::chrono::hours(offset->load());
  };
  server.answerNext(answerOf(Manner::Whole, 503));
  server.answerNext(answerOf(Manner::Whole, 503));
  start();
  enqueue("e");
  ASSERT_TRUE(server.waitForRequests(1));
  while (transfer->counters().failures < 1)
    ASSERT_TRUE(waitForThread());
  // An hour later on the plan's clock the first backoff is over, and the second attempt fails.
  offset->store(1);
  ASSERT_TRUE(waitForThread());
  ASSERT_TRUE(server.waitForRequests(2));
  while (transfer->counters().failures < 2)
    ASSERT_TRUE(waitForThread());
  EXPECT_FALSE(transfer->flush(20ms)) << "less than initialBackoff has passed since the failure";
  EXPECT_EQ(2u, server.requests().size());
}

TEST_F(Transfer, WithdrawnConsentAbortsAndPausesRequestsInFlight) {
  server.answerNext(answerOf(Manner::StallBeforeHead));
  start();
  enqueue("private");
  ASSERT_TRUE(server.waitForRequests(1));
  transfer->stopSending(nothing, true);
  EXPECT_TRUE(server.waitForAbandoned(1));
  enqueue("second");
  ASSERT_TRUE(waitForThread());
  EXPECT_TRUE(transfer->counters().paused);
  EXPECT_EQ(1u, transfer->counters().attempts);
  EXPECT_EQ(2u, queued());
  transfer->setFilter(nullptr, false);
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ((Texts{bodyOf("private"), bodyOf("private"), bodyOf("second")}), server.bodies());
}

TEST_F(Transfer, SendsNothingWhenDisabledFromTheStart) {
  setup.outbox->add(server.url(), bodyOf("old"));
  transfer = std::make_shared<JXTransfer>(setup);
  transfer->setFilter(nothing, true);
  transfer->start();
  ASSERT_TRUE(waitForThread());
  EXPECT_EQ(0, server.connections());
  transfer->setFilter(nullptr, false);
  EXPECT_TRUE(transfer->flush(kLong));
}

TEST_F(Transfer, CompletesRequestsInFlightAndStartsNoneInTheBackground) {
  JXTestAnswer slow = answerOf(Manner::SlowBytes);
  server.answerNext(slow);
  start();
  enqueue("first");
  ASSERT_TRUE(server.waitForRequests(1));
  transfer->setInBackground(true);
  enqueue("second");
  ASSERT_TRUE(deliveries.waitFor(1));
  ASSERT_TRUE(waitForThread());
  EXPECT_EQ(1u, transfer->counters().attempts);
  EXPECT_EQ(1u, queued());
  EXPECT_TRUE(transfer->counters().paused);
  transfer->setInBackground(false);
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ((Texts{bodyOf("first"), bodyOf("second")}), server.bodies());
}

TEST_F(Transfer, PausesRequestsUntilTheUserAgentIsKnown) {
  transfer = std::make_shared<JXTransfer>(setup);
  transfer->pauseForUserAgent();
  transfer->start();
  enqueue("e");
  ASSERT_TRUE(waitForThread());
  EXPECT_EQ(0u, transfer->counters().attempts);
  EXPECT_TRUE(transfer->counters().paused);
  transfer->userAgentKnown();
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_FALSE(transfer->counters().paused);
}

TEST_F(Transfer, DoesNotPauseForeverForTheUserAgent) {
  setup.timings.userAgentWait = 50ms;
  transfer = std::make_shared<JXTransfer>(setup);
  transfer->pauseForUserAgent();
  transfer->start();
  enqueue("e");
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_FALSE(transfer->counters().paused);
}

TEST_F(Transfer, PurgeEmptiesTheQueueAndAbortsRequestsInFlight) {
  server.answerAll(answerOf(Manner::StallBeforeHead));
  start();
  for (const char* id : {"a", "b", "c"})
    enqueue(id);
  ASSERT_TRUE(server.waitForRequests(1));
  transfer->purge();
  EXPECT_TRUE(transfer->flush(0ms));
  EXPECT_TRUE(server.waitForAbandoned(1));
  EXPECT_EQ(3u, transfer->counters().outbox.purged);
  server.answerAll({});
  enqueue("d");
  EXPECT_TRUE(transfer->flush(kLong));
  EXPECT_EQ(bodyOf("d"), server.bodies().back());
  // Three purged requests and one that was sent.
  ASSERT_TRUE(deliveries.waitFor(4));
  EXPECT_EQ(JXDropReason::Purged, deliveries.all()[2].dropReason);
  EXPECT_EQ(JXDeliveryOutcome::Delivered, deliveries.all()[3].outcome);
}

TEST_F(Transfer, CallbackCanUseTheTransferAndFlushDoesNotWait) {
  std::atomic<bool> flushed{true};
  setup.onDelivery = [&](const JXDelivery& delivery) {
    if (delivery.eventId == JXString("first")) {
      enqueue("second");
      flushed = transfer->flush(1h);
    }
    deliveries.add(delivery);
  };
  start();
  enqueue("first");
  ASSERT_TRUE(deliveries.waitFor(2));
  EXPECT_FALSE(flushed);
}

// Records when the thread waits without a timeout.
class WatchedTransport : public JXHttpTransport {
 public:
  explicit WatchedTransport(const JXHttpOptions& options) : curl_(options) {}

  void start(JXHttpRequest request) override { curl_.start(std::move(request)); }
  std::vector<JXHttpResult> poll(std::optional<milliseconds> timeout) override {
    ++polls;
    if (!timeout) endless.add(polls);
    return curl_.poll(timeout);
  }
  void wakeUp() noexcept override {
    ++wakes;
    curl_.wakeUp();
  }
  void abortAll() noexcept override { curl_.abortAll(); }
  void suspend() noexcept override { curl_.suspend(); }
  void resume() noexcept override { curl_.resume(); }

  std::atomic<int> wakes{0};
  int polls = 0;
  JXCollected<int> endless;  // index of each poll without a timeout

 private:
  JXCurlTransport curl_;
};

TEST_F(Transfer, SleepsWithoutATimeoutWhenIdle) {
  JXHttpOptions options;
  options.caFile = server.caFile();
  const auto transport = std::make_shared<WatchedTransport>(options);
  setup.transport = transport;
  start();
  ASSERT_TRUE(transport->endless.waitFor(1));
  enqueue("e");
  ASSERT_TRUE(deliveries.waitFor(1));
  ASSERT_TRUE(maintained.waitFor(1));
  const std::size_t before = transport->endless.all().size();
  ASSERT_TRUE(waitForThread());
  ASSERT_TRUE(transport->endless.waitFor(before + 1));
}

TEST_F(Transfer, WakesOnlyForTheSyncDuringABackoff) {
  JXHttpOptions options;
  options.caFile = server.caFile();
  const auto transport = std::make_shared<WatchedTransport>(options);
  setup.transport = transport;
  setup.timings = JXRetryTimings();
  setup.timings.initialBackoff = 1h;
  setup.timings.maxBackoff = 1h;
  setup.timings.syncDelay = 1h;
  setup.draw = [] { return 0.5; };
  server.refuse();
  start();
  enqueue("first");
  ASSERT_TRUE(probes.waitFor(1));
  while (transfer->counters().failures < 1)
    std::this_thread::yield();
  for (int i = 0; i < 2'050; ++i)
    enqueue("e");
  EXPECT_LE(transport->wakes, 3);
  EXPECT_EQ(1u, transfer->counters().attempts);
  EXPECT_EQ(2'051u, queued());
}

// A transport that blocks its thread until the test releases it.
class HangingTransport : public JXHttpTransport {
 public:
  void start(JXHttpRequest) override {}
  std::vector<JXHttpResult> poll(std::optional<milliseconds>) override {
    polling.add(1);
    EXPECT_TRUE(released.waitFor(1));
    return {};
  }
  void wakeUp() noexcept override {}
  void abortAll() noexcept override { aborted.add(1); }

  JXCollected<int> polling, released, aborted;
};

TEST_F(Transfer, HangingThreadDelaysNeitherFlushNorStop) {
  const auto transport = std::make_shared<HangingTransport>();
  setup.transport = transport;
  start();
  ASSERT_TRUE(transport->polling.waitFor(1));
  enqueue("e");
  EXPECT_FALSE(transfer->flush(20ms));
  EXPECT_FALSE(transfer->stop(20ms));
  EXPECT_FALSE(transfer->stop(20ms));
  transport->released.add(1);
  transfer.reset();
  EXPECT_EQ(0u, transport->aborted.all().size())
      << "an abandoned thread must not use the transport";
}

// A transport that blocks in `poll` with a request, and returns its result when the test says so.
class LateTransport : public HangingTransport {
 public:
  void start(JXHttpRequest request) override { request_ = std::move(request); }
  std::vector<JXHttpResult> poll(std::optional<milliseconds> timeout) override {
    if (request_.body.empty()) return {};
    HangingTransport::poll(timeout);
    JXHttpResult result;
    result.request = request_;
    result.outcome.status = 200;
    returned.add(1);
    return {result};
  }

  JXCollected<int> returned;

 private:
  JXHttpRequest request_;
};

TEST_F(Transfer, IgnoresResultsThatArriveAfterTheStop) {
  const auto transport = std::make_shared<LateTransport>();
  setup.transport = transport;
  start();
  enqueue("e");
  ASSERT_TRUE(transport->polling.waitFor(1));
  EXPECT_FALSE(transfer->stop(20ms));
  transport->released.add(1);
  ASSERT_TRUE(transport->returned.waitFor(1));
  std::this_thread::sleep_for(50ms);  // the abandoned thread cannot be joined
  EXPECT_EQ(1u, queued());
  EXPECT_EQ(0u, deliveries.all().size());
}

// A transport that sends with libcurl, or throws in the operation that the test selects.
class ThrowingTransport : public WatchedTransport {
 public:
  enum class Operation { None, Start, Poll };
  using WatchedTransport::WatchedTransport;

  void start(JXHttpRequest request) override {
    if (throwing == Operation::Start) {
      thrownByStart.add(1);
      throw std::runtime_error("start failed");
    }
    WatchedTransport::start(std::move(request));
  }
  std::vector<JXHttpResult> poll(std::optional<milliseconds> timeout) override {
    if (throwing == Operation::Poll) {
      thrownByPoll.add(1);
      throw 1;  // not a std::exception
    }
    return WatchedTransport::poll(timeout);
  }

  std::atomic<Operation> throwing{Operation::None};
  JXCollected<int> thrownByStart, thrownByPoll;
};

TEST_F(Transfer, LosesNothingWhenTheTransportThrows) {
  const test::JXLogCapture log;
  JXHttpOptions options;
  options.caFile = server.caFile();
  const auto transport = std::make_shared<ThrowingTransport>(options);
  setup.transport = transport;
  transport->throwing = ThrowingTransport::Operation::Start;
  start();
  for (const char* id : {"a", "b", "c"})
    enqueue(id);
  ASSERT_TRUE(transport->thrownByStart.waitFor(2));
  EXPECT_EQ(3u, queued());
  transport->throwing = ThrowingTransport::Operation::Poll;
  ASSERT_TRUE(transport->thrownByPoll.waitFor(2));
  EXPECT_EQ(3u, queued());
  transport->throwing = ThrowingTransport::Operation::None;
  EXPECT_TRUE(transfer->flush(kLong));
  const Texts bodies = server.bodies();
  EXPECT_EQ((std::multiset<std::string>{bodyOf("a"), bodyOf("b"), bodyOf("c")}),
            std::multiset<std::string>(bodies.begin(), bodies.end()));
  EXPECT_EQ(Texts{"3 Transfer thread error: start failed; in-flight requests requeued"},
            log.linesWith("start failed"));
  EXPECT_EQ(Texts{"3 Transfer thread error: unknown error; in-flight requests requeued"},
            log.linesWith("unknown error"));
}

TEST_F(Transfer, StopsImmediatelyWhileTheTransportThrows) {
  const auto transport = std::make_shared<ThrowingTransport>(JXHttpOptions());
  setup.transport = transport;
  transport->throwing = ThrowingTransport::Operation::Poll;
  start();
  ASSERT_TRUE(transport->thrownByPoll.waitFor(2));
  // The thread waits for a second between its calls, but not for a stop.
  const auto before = std::chrono::steady_clock::now();
  EXPECT_TRUE(transfer->stop(kLong));
  EXPECT_LT(std::chrono::steady_clock::now() - before, 900ms);
}

TEST_F(Transfer, StopReturnsImmediatelyInAForkedChild) {
  start();
  ChildProcess child([this](int) { return transfer->stop(1h) ? 1 : 0; });
  EXPECT_EQ(0, child.wait());
  enqueue("of the parent");
  EXPECT_TRUE(transfer->flush(kLong));
}

}  // namespace
}  // namespace jx
