// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/transfer/JXHttpTransport.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

// An application's transport: responds with the statuses of `respond`, and then not at all.
class ApplicationTransport final : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    started.add(request);
    inFlight_.push_back(std::move(request));
  }
  std::vector<JXHttpResult> poll(std::optional<Milliseconds> timeout) override {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto isDue = [this] { return woken_ || mayRespond(); };
    if (timeout) {
      changed_.wait_for(lock, *timeout, isDue);
    } else {
      changed_.wait(lock, isDue);
    }
    woken_ = false;
    std::vector<JXHttpResult> results;
    while (mayRespond()) {
      JXHttpResult result;
      result.request = std::move(inFlight_.front());
      result.outcome.status = statuses_.front();
      inFlight_.pop_front();
      statuses_.pop_front();
      results.push_back(std::move(result));
    }
    return results;
  }
  void wakeUp() noexcept override {
    const std::lock_guard<std::mutex> lock(mutex_);
    woken_ = true;
    changed_.notify_all();
  }
  void abortAll() noexcept override {
    const std::lock_guard<std::mutex> lock(mutex_);
    for (const JXHttpRequest& request : inFlight_)
      aborted.add(request);
    inFlight_.clear();
  }

  /// Sets the response to the next request that has none.
  void respond(int status) {
    const std::lock_guard<std::mutex> lock(mutex_);
    statuses_.push_back(status);
    changed_.notify_all();
  }

  JXCollected<JXHttpRequest> started, aborted;

 private:
  bool mayRespond() const { return !inFlight_.empty() && !statuses_.empty(); }

  std::mutex mutex_;
  std::condition_variable changed_;
  bool woken_ = false;
  std::deque<JXHttpRequest> inFlight_;
  std::deque<int> statuses_;
};

class ServerSideTransport : public ServerSideFixture {
 protected:
  ServerSideTransport() {
    configuration.storageFolder = storage().path();
    configuration.dryRun = false;
    configuration.transport = transport;
    configuration.retryTimings.initialBackoff = 1ms;
    configuration.retryTimings.maxBackoff = 1ms;
    // Co-owned, because the transfer thread may outlive the test.
    configuration.onDelivery = [all = deliveries](const JXDelivery& each) { all->add(each); };
  }
  static JXDeliveryCounters counters() { return JXNetworkManager::sharedInstance().counters(); }

  std::shared_ptr<ApplicationTransport> transport = std::make_shared<ApplicationTransport>();
  std::shared_ptr<JXCollected<JXDelivery>> deliveries = std::make_shared<JXCollected<JXDelivery>>();
};

TEST_F(ServerSideTransport, PassesTheExactUrlAndBodyToTheTransport) {
  const auto serverSide = make();
  const Request request = execute(*serverSide);
  ASSERT_TRUE(transport->started.waitFor(1));
  const JXHttpRequest started = transport->started.all().front();
  EXPECT_EQ(started.url, "https://collect.example.com/events?jx_s=1234&token=key");
  EXPECT_EQ(started.body, request.text);
  EXPECT_NE(started.body, "");
}

TEST_F(ServerSideTransport, DeliversAnEventWithStatus2xx) {
  const auto serverSide = make();
  transport->respond(204);
  const Request request = execute(*serverSide);
  ASSERT_TRUE(deliveries->waitFor(1));
  const JXDelivery delivery = deliveries->all().front();
  EXPECT_EQ(delivery.outcome, JXDeliveryOutcome::Delivered);
  EXPECT_EQ(delivery.status, 204);
  EXPECT_EQ(delivery.eventId, request.body.get("context").object().get("event_id").string());
  EXPECT_EQ(counters().outbox.queued, 0u);
}

TEST_F(ServerSideTransport, RetriesAnEventWithTheSameBytesAfterStatus503) {
  const auto serverSide = make();
  transport->respond(503);
  transport->respond(200);
  execute(*serverSide);
  ASSERT_TRUE(deliveries->waitFor(1));
  EXPECT_EQ(deliveries->all().front().outcome, JXDeliveryOutcome::Delivered);
  const std::vector<JXHttpRequest> started = transport->started.all();
  ASSERT_EQ(started.size(), 2u);
  EXPECT_EQ(started[0].body, started[1].body);
  EXPECT_EQ(started[0].url, started[1].url);
  EXPECT_EQ(counters().failures, 1u);
}

TEST_F(ServerSideTransport, RejectsAnEventWithStatus404) {
  const auto serverSide = make();
  transport->respond(404);
  execute(*serverSide);
  ASSERT_TRUE(deliveries->waitFor(1));
  EXPECT_EQ(deliveries->all().front().outcome, JXDeliveryOutcome::Rejected);
  EXPECT_EQ(deliveries->all().front().status, 404);
  EXPECT_EQ(transport->started.all().size(), 1u);
  EXPECT_EQ(counters().outbox.queued, 0u);
}

TEST_F(ServerSideTransport, AbortsRequestsInFlightWhenDisabled) {
  const auto serverSide = make();
  execute(*serverSide);
  ASSERT_TRUE(transport->started.waitFor(1));
  serverSide->disableServerSide();
  ASSERT_TRUE(transport->aborted.waitFor(1));
  EXPECT_EQ(counters().outbox.queued, 1u);
}

TEST_F(ServerSideTransport, IsNotUsedInADryRun) {
  configuration.dryRun = true;
  const auto serverSide = make();
  execute(*serverSide);
  EXPECT_TRUE(JXNetworkManager::sharedInstance().flush(20s));
  EXPECT_EQ(counters().outbox.added, 0u);
  EXPECT_TRUE(transport->started.all().empty());
}

TEST_F(ServerSideTransport, IsNotDestroyedWhileTheProcessRuns) {
  const std::weak_ptr<ApplicationTransport> weak = transport;
  {
    const auto serverSide = make();
    execute(*serverSide);
    ASSERT_TRUE(transport->started.waitFor(1));
  }
  transport.reset();
  configuration = JXCoreConfiguration();
  EXPECT_FALSE(weak.expired());
}

// Runs `work` in a child process and returns its exit status; -1 if it did not exit within 20
// seconds.
template <class Work>
int exitStatusOf(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    std::exit(42);  // runs the exit handlers
  }
  for (int i = 0; i < 2'000; ++i) {
    int status = 0;
    if (waitpid(child, &status, WNOHANG) == child) {
      return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    usleep(10'000);
  }
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  return -1;
}

// Blocks its thread forever, even when it is woken.
class BlockingTransport final : public JXHttpTransport {
 public:
  void start(JXHttpRequest) override {}
  std::vector<JXHttpResult> poll(std::optional<Milliseconds>) override {
    polling.add(1);
    while (true)
      pause();
  }
  void wakeUp() noexcept override {}
  void abortAll() noexcept override {}

  JXCollected<int> polling;
};

TEST_F(ServerSideTransport, ProcessExitsWithATransportThatNeverResponds) {
  EXPECT_EQ(42, exitStatusOf([this] {
              const auto serverSide = make();
              serverSide->execute(JXCustomEvent::initWithName("quiz"));
              if (!transport->started.waitFor(1)) _exit(1);
            }));
}

TEST_F(ServerSideTransport, ProcessExitsWithATransportThatIgnoresWakeUp) {
  const auto blocking = std::make_shared<BlockingTransport>();
  configuration.transport = blocking;
  EXPECT_EQ(42, exitStatusOf([&] {
              const auto serverSide = make();
              serverSide->execute(JXCustomEvent::initWithName("quiz"));
              if (!blocking->polling.waitFor(1)) _exit(1);
            }));
}

}  // namespace
}  // namespace jx::test
