// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXJournal.h"
#include "tests/core/storage/JXOutboxFixture.h"

namespace jx {
namespace {

using namespace std::chrono_literals;
using Order = JXOutboxPick::Order;

class OutboxFailures : public OutboxTest {
 protected:
  static JXRequestFailures failures(std::uint16_t count, std::chrono::milliseconds delay,
                                    bool hasRetryAfter = false) {
    JXRequestFailures made;
    made.count = count;
    made.delay = delay;
    made.hasRetryAfter = hasRetryAfter;
    return made;
  }
  // Takes the request that `pick` chooses; returns its body, "" if there is none.
  static std::string take(JXOutbox& outbox, const JXOutboxPick& pick) {
    const auto request = outbox.take(pick);
    return request ? request->body : "";
  }
  // Adds requests of which the first fails with these failures.
  std::uint64_t addFailed(JXOutbox& outbox, const std::string& body,
                          const JXRequestFailures& failed) {
    const std::uint64_t id = add(outbox, body);
    EXPECT_EQ(outbox.take({0, Order::Newest, 0})->id, id);
    outbox.requeueFailed(id, failed);
    return id;
  }
  static constexpr JXOutboxPick kRetry{0, Order::Retry, 0};
};

TEST_F(OutboxFailures, FailedRequestIsTakenAfterItsDelayOnly) {
  const auto outbox = open();
  addFailed(*outbox, "a", failures(1, 60s));
  add(*outbox, "b");
  EXPECT_EQ(take(*outbox, {}), "b");
  EXPECT_EQ(take(*outbox, {}), "");
  clock_->advance(59'999);
  EXPECT_EQ(take(*outbox, kRetry), "");
  EXPECT_EQ(outbox->nextRetryIn(0, {}), 1ms);
  clock_->advance(1);
  const auto request = outbox->take(kRetry);
  ASSERT_TRUE(request.has_value());
  EXPECT_EQ(request->body, "a");
  EXPECT_EQ(request->failures.count, 1u);
  EXPECT_EQ(request->failures.firstMs, kTestNowMs);
  EXPECT_EQ(outbox->nextRetryIn(0, {}), std::nullopt);
  EXPECT_TRUE(outbox->markDelivered(request->id));
}

TEST_F(OutboxFailures, RetriesTheRequestThatHasWaitedLongest) {
  const auto outbox = open();
  addFailed(*outbox, "a", failures(3, 60s));
  addFailed(*outbox, "b", failures(2, 30s));
  addFailed(*outbox, "c", failures(2, 40s));
  clock_->advance(100'000);
  EXPECT_EQ(take(*outbox, kRetry), "b");
  EXPECT_EQ(take(*outbox, kRetry), "c");
  EXPECT_EQ(take(*outbox, kRetry), "a");
  EXPECT_EQ(take(*outbox, kRetry), "");
}

TEST_F(OutboxFailures, NextProcessContinuesWithTheFailures) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    const std::uint64_t b = addFailed(*outbox, "b", failures(1, 60s));
    clock_->advance(60'000);
    outbox->take(kRetry);
    outbox->requeueFailed(b, failures(2, 120s, true));
  }
  clock_->advance(20'000);
  const auto outbox = open();
  EXPECT_EQ(takeAll(*outbox), Bodies{"a"});
  EXPECT_EQ(outbox->nextRetryIn(0, {}), 100s);
  ASSERT_EQ(outbox->hosts().size(), 1u);
  EXPECT_EQ(outbox->hosts()[0].failed, 1u);
  clock_->advance(100'000);
  const auto request = outbox->take(kRetry);
  ASSERT_TRUE(request.has_value());
  EXPECT_EQ(request->failures.count, 2u);
  EXPECT_TRUE(request->failures.hasRetryAfter);
  EXPECT_EQ(request->failures.firstMs, kTestNowMs);
  EXPECT_EQ(outbox->failedFor(request->id), 180s);
}

TEST_F(OutboxFailures, OtherReadersListAFailedRequest) {
  const auto outbox = open();
  addFailed(*outbox, "a", failures(1, 60s));
  EXPECT_EQ(listed(), Bodies{"a"});
}

TEST_F(OutboxFailures, ClockThatWasSetBackDoesNotProlongTheDelay) {
  const auto outbox = open();
  addFailed(*outbox, "a", failures(1, 60s));
  clock_->advance(-400 * kDayMs);
  EXPECT_EQ(outbox->nextRetryIn(0, {}), 60s);
  clock_->advance(60'000);
  EXPECT_EQ(take(*outbox, kRetry), "a");
}

TEST_F(OutboxFailures, DelayOfAFailureInTheFutureBeginsAtTheStart) {
  {
    const auto outbox = open();
    addFailed(*outbox, "a", failures(1, 60s));
  }
  clock_->advance(-400 * kDayMs);
  const auto outbox = open();
  clock_->advance(60'000);
  EXPECT_EQ(take(*outbox, kRetry), "a");
}

TEST_F(OutboxFailures, AnyJumpOfTheClockEndsTheDelayAtMost) {
  const auto outbox = open();
  clock_->set(INT64_MIN);
  addFailed(*outbox, "a", failures(1, 60s));
  clock_->set(INT64_MAX);
  EXPECT_EQ(take(*outbox, kRetry), "a");
}

TEST_F(OutboxFailures, FailuresBeforeTheClockWasSetHaveNoAge) {
  const auto outbox = open();
  clock_->set(5'000);
  const std::uint64_t a = addFailed(*outbox, "a", failures(1, 60s));
  clock_->set(kTestNowMs);
  EXPECT_EQ(outbox->failedFor(a), 0ms);
  ASSERT_EQ(take(*outbox, kRetry), "a");
  outbox->requeueFailed(a, failures(2, 60s));
  clock_->advance(kDayMs);
  EXPECT_EQ(outbox->failedFor(a), 24h);
}

TEST_F(OutboxFailures, LimitsTheDelayOfAnEarlierProcess) {
  {
    const auto outbox = open();
    addFailed(*outbox, "a", failures(9, 24h * 40));
  }
  EXPECT_EQ(open()->nextRetryIn(0, {}), 24h);
}

TEST_F(OutboxFailures, IgnoresFailuresOfALaterOrAnUnknownRequest) {
  {
    const auto outbox = open();
    add(*outbox, "a");
  }
  {
    int error = 0;
    JXJournal journal(
        JXFile::open(box_ + "/segment-0000000000000001", JXFile::Access::AppendExisting, error),
        box_ + "/segment-0000000000000001");
    ASSERT_EQ(error, 0);
    for (const std::uint32_t offset : {0u, 3u, 4'000u}) {
      ASSERT_EQ(journal.append({encodeFailures(offset, failures(1, 1h))}, nullptr), 0);
    }
    ASSERT_EQ(journal.append({std::string_view("F too short")}, nullptr), 0);
  }
  EXPECT_EQ(takeAll(*open()), Bodies{"a"});
}

TEST_F(OutboxFailures, StoresFailuresOfARequestThatWasInMemory) {
  {
    JXOutbox outbox(box_, JXOutboxBounds(), clock_, nullptr, false);
    addFailed(outbox, "a", failures(4, 60s));
    outbox.beginStoring();
    outbox.sync();
    EXPECT_EQ(outbox.counters().inMemory, 0u);
  }
  const auto outbox = open();
  EXPECT_EQ(takeAll(*outbox), Bodies{});
  EXPECT_EQ(outbox->nextRetryIn(0, {}), 60s);
}

TEST_F(OutboxFailures, FlushShortensDelaysExceptARetryAfter) {
  const auto outbox = open();
  addFailed(*outbox, "a", failures(9, 8h));
  addFailed(*outbox, "b", failures(1, 10min, true));
  outbox->shortenRetryDelays(1s);
  clock_->advance(1'000);
  EXPECT_EQ(take(*outbox, kRetry), "a");
  EXPECT_EQ(take(*outbox, kRetry), "");
  EXPECT_EQ(outbox->nextRetryIn(0, {}), 10min - 1s);
}

TEST_F(OutboxFailures, PicksTheNewestOrAnyNewRequest) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c", "d"})
    add(*outbox, body);
  EXPECT_EQ(take(*outbox, {0, Order::Newest, 0}), "d");
  EXPECT_EQ(take(*outbox, {0, Order::Random, 0.5}), "b");
  EXPECT_EQ(take(*outbox, {0, Order::Random, 1.0}), "c");
  EXPECT_EQ(take(*outbox, {0, Order::Random, 0.0}), "a");
  EXPECT_EQ(take(*outbox, {0, Order::Random, 0.5}), "");
  EXPECT_EQ(take(*outbox, {0, Order::Newest, 0}), "");
}

TEST_F(OutboxFailures, TakesTheRequestsOfOneHost) {
  const auto outbox = open();
  outbox->add("https://one.example/", "a");
  outbox->add("https://two.example/", "b");
  outbox->add("https://one.example/", "c");
  const std::vector<JXOutboxHost> hosts = outbox->hosts();
  ASSERT_EQ(hosts.size(), 2u);
  const auto b = outbox->take({hosts[1].id, Order::Oldest, 0});
  EXPECT_EQ(b->body, "b");
  EXPECT_EQ(take(*outbox, {hosts[1].id, Order::Oldest, 0}), "");
  outbox->requeue(b->id);
  EXPECT_EQ(take(*outbox, {hosts[1].id, Order::Newest, 0}), "b");
  EXPECT_EQ(take(*outbox, {hosts[0].id, Order::Oldest, 0}), "a");
  EXPECT_EQ(take(*outbox, {hosts[0].id, Order::Oldest, 0}), "c");
  EXPECT_EQ(take(*outbox, {77, Order::Oldest, 0}), "");
}

TEST_F(OutboxFailures, KeepsRequestsOfAnInvalidHost) {
  const auto outbox = open();
  outbox->add("invalid://two%20words/x", "a");
  EXPECT_TRUE(outbox->hosts().empty());
  EXPECT_EQ(take(*outbox, {}), "");
  EXPECT_EQ(outbox->counters().queued, 1u);
  EXPECT_EQ(listed(), Bodies{"a"});
}

}  // namespace
}  // namespace jx
