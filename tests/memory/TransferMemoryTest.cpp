// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/transfer/JXTransferLoop.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/memory/FailingMemory.h"

namespace jx {
namespace {

using std::chrono::milliseconds;
using test::Failing;
using test::FailingMemory;

// The number of an event is the last digit of its ID.
constexpr const char* kIdStart = "11111111-2222-3333-4444-55555555555";
constexpr std::size_t kEvents = 4;
constexpr std::size_t kRejected = 1;
constexpr std::size_t kFailing = 2;
using Counts = std::array<int, kEvents>;

std::size_t numberIn(std::string_view text, std::string_view start) {
  const std::size_t at = text.find(start);
  return at == std::string_view::npos ? kEvents - 1
                                      : static_cast<std::size_t>(text[at + start.size()] - '0');
}

// Responds to each request in the next `poll`. A response counts when `poll` has returned it.
class Server : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override { waiting_.at(used_++) = std::move(request); }
  std::vector<JXHttpResult> poll(std::optional<milliseconds> timeout) override {
    now += timeout.value_or(milliseconds(1'000));
    std::vector<JXHttpResult> results(used_);
    for (std::size_t i = 0; i < used_; ++i) {
      const std::size_t number = numberIn(waiting_[i].body, kIdStart);
      const bool isFirst = ++responses.at(number) == 1;
      results[i].request = std::move(waiting_[i]);
      results[i].outcome.status = 200;
      if (number == kRejected) results[i].outcome.status = 400;
      if (number == kFailing && isFirst) results[i].outcome.status = 500;
    }
    used_ = 0;
    return results;
  }
  void wakeUp() noexcept override {}
  void abortAll() noexcept override { used_ = 0; }

  Counts responses{};
  milliseconds now{0};

 private:
  std::array<JXHttpRequest, 16> waiting_;
  std::size_t used_ = 0;
};

class TransferMemory : public OutboxTest, public ::testing::WithParamInterface<Failing> {
 protected:
  // A device with four queued events, one of which displaces another one.
  struct Device {
    std::shared_ptr<JXOutbox> outbox;
    std::shared_ptr<Server> server = std::make_shared<Server>();
    Counts delivered{};
    Counts rejected{};
    Counts dropped{};
    std::unique_ptr<JXTransferLoop> loop;

    void step() noexcept {
      try {
        loop->apply({}, false);
        const JXTransferWait wait = loop->act();
        loop->complete(loop->poll(wait, true));
      } catch (const std::exception& error) {
        loop->recover(error.what());
      }
    }
  };

  std::unique_ptr<Device> start(const std::string& name) {
    auto device = std::make_unique<Device>();
    Device& it = *device;
    JXOutboxBounds bounds;
    bounds.maxRequests = 3;
    it.outbox = std::make_shared<JXOutbox>(folder_.file(name), bounds, clock_);
    JXTransferSetup setup;
    setup.outbox = it.outbox;
    setup.clock = clock_;
    setup.transport = it.server;
    setup.timings.initialBackoff = milliseconds(10);
    setup.steadyNow = [&it] {
      return std::chrono::steady_clock::time_point(std::chrono::hours(1) + it.server->now);
    };
    setup.draw = [] { return 0.5; };
    setup.onDelivery = [&it](const JXDelivery& delivery) {
      const std::size_t number = numberIn(delivery.eventId.view(), kIdStart);
      if (delivery.outcome == JXDeliveryOutcome::Delivered) ++it.delivered.at(number);
      if (delivery.outcome == JXDeliveryOutcome::Rejected) ++it.rejected.at(number);
      if (delivery.outcome == JXDeliveryOutcome::Dropped) ++it.dropped.at(number);
    };
    it.loop = std::make_unique<JXTransferLoop>(std::move(setup));
    for (const char* number : {"3", "0", "1", "2"})
      add(*it.outbox, event(std::string(kIdStart) + number));
    return device;
  }
};

INSTANTIATE_TEST_SUITE_P(Failing, TransferMemory,
                         ::testing::Values(Failing::OnlyOne, Failing::AllLater));

TEST_P(TransferMemory, DeliversAndReportsEachEventOnceAtEachFailingAllocation) {
  std::size_t succeeding = 0;
  bool hasFailed = true;
  for (; hasFailed && succeeding < 5'000; ++succeeding) {
    const auto device = start(std::to_string(succeeding));
    {
      const FailingMemory memory(succeeding, GetParam());
      for (int i = 0; i < 10; ++i)
        device->step();
      hasFailed = memory.hasFailed();
    }
    for (int i = 0; i < 300; ++i) {
      clock_->advance(1'000);
      device->step();
    }
    EXPECT_EQ(device->outbox->counters().queued, 0u) << succeeding;
    EXPECT_EQ(device->server->responses, (Counts{1, 1, 2, 0})) << succeeding;
    EXPECT_EQ(device->delivered, (Counts{1, 0, 1, 0})) << succeeding;
    EXPECT_EQ(device->rejected, (Counts{0, 1, 0, 0})) << succeeding;
    EXPECT_EQ(device->dropped, (Counts{0, 0, 0, 1})) << succeeding;
    std::string error;
    EXPECT_EQ(listDeadLetters(folder_.file(std::to_string(succeeding)), error).size(), 1u)
        << succeeding;
    if (HasFailure()) return;
  }
  EXPECT_GT(succeeding, 50u);
  EXPECT_FALSE(hasFailed);
}

}  // namespace
}  // namespace jx
