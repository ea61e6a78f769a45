// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "jx/platform/JXManualClock.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {

/// A transport whose responses the input chooses.
class SteppedTransport final : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override {
    if (throws) throw std::runtime_error("no memory");
    inFlight.push_back(std::move(request));
  }
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override {
    require(!timeout || *timeout >= std::chrono::milliseconds(0), "a timeout is not negative");
    std::vector<JXHttpResult> results;
    if (!responds) return results;
    for (JXHttpRequest& request : inFlight) {
      JXHttpResult result;
      result.request = std::move(request);
      result.outcome = outcome;
      result.retryAfter = retryAfter;
      result.date = date;
      results.push_back(result);
      if (repeats) results.push_back(result);
    }
    inFlight.clear();
    return results;
  }
  void wakeUp() noexcept override {}
  void abortAll() noexcept override { inFlight.clear(); }

  bool responds = true;
  bool repeats = false;
  bool throws = false;
  JXAttemptResult outcome{200, false};
  JXString retryAfter;
  JXString date;
  std::vector<JXHttpRequest> inFlight;
};

/// The transfer thread's work with a configuration, step by step, in the folder `box`.
class SteppedDelivery {
 public:
  SteppedDelivery(const std::string& box, const JXCoreConfiguration& configuration, double draw)
      : loop_([&] {
          JXTransferSetup setup;
          outbox_ = std::make_shared<JXOutbox>(box, configuration.outboxBounds, clock_);
          setup.outbox = outbox_;
          setup.clock = clock_;
          setup.timings = configuration.retryTimings;
          setup.transport = transport_;
          setup.steadyNow = [this] { return now_; };
          setup.draw = [draw] { return draw; };
          setup.onDelivery = [this](const JXDelivery& delivery) { report(delivery); };
          return setup;
        }()) {}

  SteppedTransport& transport() { return *transport_; }
  JXTransferCommands& commands() { return commands_; }
  JXTransferPlan::Time now() const { return now_; }
  void setClock(std::int64_t ms) { clock_->set(ms); }
  void purge() {
    outbox_->purge();
    ++commands_.purges;
  }

  void add(std::uint8_t host, std::size_t size) {
    const std::string id = "e" + std::to_string(added_++);
    const std::string body = R"({"context":{"event_id":")" + id + R"("}})" + std::string(size, ' ');
    const std::string url = "https://host" + std::to_string(host % 4) + ".example/events";
    if (outbox_->add(url, body)) waiting_.insert(id);
    hasAdded_ = true;
  }

  void step() {
    try {
      loop_.apply(commands_, std::exchange(hasAdded_, false));
      wait_ = loop_.act();
      loop_.complete(loop_.poll(wait_, true));
    } catch (const std::exception& error) {
      loop_.recover(error.what());
    }
  }
  void advance(std::chrono::milliseconds time) {
    now_ += time;
    clock_->advance(time.count());
  }

  /// Lets all requests be delivered. Each wait of the loop is followed, however long it is.
  void drain() {
    commands_.inBackground = false;
    commands_.pausedUntil.reset();
    transport_->throws = transport_->repeats = false;
    transport_->responds = true;
    transport_->outcome = {200, false};
    transport_->retryAfter = nullptr;
    const std::size_t maxSteps = 20 * (added_ + 4);
    for (std::size_t i = 0; !waiting_.empty() && i < maxSteps; ++i) {
      step();
      if (!wait_.wakeAt || *wait_.wakeAt <= now_) continue;
      advance(std::chrono::ceil<std::chrono::milliseconds>(*wait_.wakeAt - now_));
    }
    require(waiting_.empty(), "each request has an outcome",
            std::to_string(waiting_.size()) + " without", "");
  }

 private:
  void report(const JXDelivery& delivery) {
    const std::string id = delivery.eventId.toStdString();
    require(reported_.insert(id).second, "a request has one outcome", id, {});
    waiting_.erase(id);
    const int status = transport_->outcome.status;
    require(delivery.outcome != JXDeliveryOutcome::Delivered || (status >= 200 && status < 300),
            "only 2xx is a delivery", std::to_string(status), id);
  }

  const std::shared_ptr<JXManualClock> clock_ = std::make_shared<JXManualClock>(1'790'000'000'000);
  const std::shared_ptr<SteppedTransport> transport_ = std::make_shared<SteppedTransport>();
  JXTransferPlan::Time now_{};
  std::shared_ptr<JXOutbox> outbox_;
  std::size_t added_ = 0;
  bool hasAdded_ = false;
  std::set<std::string> waiting_;  ///< requests without an outcome
  std::set<std::string> reported_;
  JXTransferCommands commands_;
  JXTransferWait wait_;
  JXTransferLoop loop_;
};

}  // namespace jx::fuzz
