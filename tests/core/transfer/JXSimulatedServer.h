// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/transfer/JXTransferLoop.h"
#include "jx/platform/JXManualClock.h"
#include "tests/core/storage/JXTemporaryFolder.h"

namespace jx::test {

/// A server in simulated time: responds to each request after a round trip. `poll` advances the
/// time instead of waiting.
class JXSimulatedServer : public JXHttpTransport {
 public:
  using Milliseconds = std::chrono::milliseconds;

  void start(JXHttpRequest request) override {
    ++attempts;
    inFlight_.push_back({now + roundTrip(request), std::move(request)});
  }
  std::vector<JXHttpResult> poll(std::optional<Milliseconds> timeout) override {
    const auto first =
        std::min_element(inFlight_.begin(), inFlight_.end(),
                         [](const Flight& a, const Flight& b) { return a.due < b.due; });
    Milliseconds until = limit;
    if (timeout) until = std::min(until, now + *timeout);
    if (first != inFlight_.end()) until = std::min(until, first->due);
    now = std::max(now, until);
    std::vector<JXHttpResult> results;
    if (first == inFlight_.end() || first->due > now) return results;
    JXHttpResult result;
    result.request = std::move(first->request);
    inFlight_.erase(first);
    result.outcome.status = statusOf(result.request);
    results.push_back(std::move(result));
    return results;
  }
  void wakeUp() noexcept override {}
  void abortAll() noexcept override { inFlight_.clear(); }

  Milliseconds now{0};
  Milliseconds limit{0};  ///< `poll` does not advance the time beyond this
  std::function<int(const JXHttpRequest&)> statusOf;
  std::function<Milliseconds(const JXHttpRequest&)> roundTrip = [](const JXHttpRequest&) {
    return Milliseconds(50);
  };
  int attempts = 0;

 private:
  struct Flight {
    Milliseconds due;
    JXHttpRequest request;
  };
  std::vector<Flight> inFlight_;
};

/// A device that delivers its queue to a simulated server, with the real outbox, plan and loop.
class JXSimulatedDevice {
 public:
  using Milliseconds = std::chrono::milliseconds;

  explicit JXSimulatedDevice(unsigned seed, JXOutboxBounds bounds = {}) : bounds_(bounds) {
    setup_.clock = clock_;
    setup_.timings.syncDelay = std::chrono::hours(24);  // only to save time
    setup_.transport = server_;
    setup_.steadyNow = [this] {
      return std::chrono::steady_clock::time_point(std::chrono::hours(1) + server_->now);
    };
    setup_.draw = [random = std::mt19937(seed)]() mutable {
      return std::uniform_real_distribution<double>(0.0, 1.0)(random);
    };
    setup_.onDelivery = [this](const JXDelivery& delivery) {
      if (onDelivery) onDelivery(delivery);
    };
    restart();
  }

  JXSimulatedServer& server() { return *server_; }
  JXOutbox& outbox() { return *setup_.outbox; }
  void add(const std::string& eventId, const std::string& host = "https://host") {
    clock_->set(kStartMs + server_->now.count());
    outbox().add(host + "/events", R"({"context":{"event_id":")" + eventId + R"("}})");
    added_ = true;
  }
  /// Delivers until `time` has passed in total, or earlier when `isDone` returns true.
  void runUntil(Milliseconds time, const std::function<bool()>& isDone = {}) {
    server_->limit = time;
    while (server_->now < time && !(isDone && isDone())) {
      clock_->set(kStartMs + server_->now.count());
      loop_->apply({}, std::exchange(added_, false));
      const JXTransferWait wait = loop_->act();
      std::vector<JXHttpResult> results = loop_->poll(wait, true);
      clock_->set(kStartMs + server_->now.count());
      loop_->complete(std::move(results));
    }
  }
  /// Ends the process and starts another one with the same storage.
  void restart() {
    loop_.reset();
    setup_.outbox.reset();
    setup_.outbox = std::make_shared<JXOutbox>(folder_.file("outbox"), bounds_, clock_);
    loop_ = std::make_unique<JXTransferLoop>(setup_);
  }
  std::uint64_t queued() { return outbox().counters().queued; }

  std::function<void(const JXDelivery&)> onDelivery;

 private:
  static constexpr std::int64_t kStartMs = 1'790'000'000'000;  // in September 2026

  const JXOutboxBounds bounds_;
  TemporaryFolder folder_;
  std::shared_ptr<JXManualClock> clock_ = std::make_shared<JXManualClock>(kStartMs);
  std::shared_ptr<JXSimulatedServer> server_ = std::make_shared<JXSimulatedServer>();
  JXTransferSetup setup_;
  std::unique_ptr<JXTransferLoop> loop_;
  bool added_ = false;
};

}  // namespace jx::test
