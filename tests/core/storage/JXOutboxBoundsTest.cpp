// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/core/storage/JXOutboxFixture.h"

namespace jx {
namespace {

class OutboxBounds : public OutboxTest {};

TEST_F(OutboxBounds, DropsTheOldestBeyondMaxRequests) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 3;
  const auto outbox = open(bounds);
  for (const char* body : {"a", "b", "c", "d", "e"})
    add(*outbox, body);
  EXPECT_EQ(outbox->counters().droppedTooMany, 2u);
  EXPECT_EQ(outbox->counters().queued, 3u);
  EXPECT_EQ(listed(), (Bodies{"c", "d", "e"}));
  EXPECT_EQ(takeAll(*outbox), (Bodies{"c", "d", "e"}));
}

TEST_F(OutboxBounds, DropsTheOldestBeyondMaxBytes) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 100;
  const auto outbox = open(bounds);
  outbox->add("", std::string(40, 'a'));
  outbox->add("", std::string(40, 'b'));
  outbox->add("", std::string(20, 'c'));
  EXPECT_EQ(outbox->counters().droppedTooLarge, 0u);
  outbox->add("", std::string(41, 'd'));
  EXPECT_EQ(outbox->counters().droppedTooLarge, 2u);
  EXPECT_EQ(outbox->counters().queuedBytes, 61u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{std::string(20, 'c'), std::string(41, 'd')}));
}

TEST_F(OutboxBounds, RejectsARequestLargerThanMaxBytesAndDropsNoOther) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 100;
  const auto outbox = open(bounds);
  add(*outbox, "small");
  EXPECT_FALSE(outbox->add("", std::string(101, 'x')).has_value());
  EXPECT_TRUE(outbox->add("1234567890", std::string(55, 'x')).has_value());
  EXPECT_EQ(outbox->counters().droppedTooLarge, 1u);
  EXPECT_EQ(outbox->counters().added, 2u);
  EXPECT_EQ(outbox->counters().queued, 2u);
}

TEST_F(OutboxBounds, KeepsARequestForExactlyThirtyDays) {
  const auto outbox = open();
  add(*outbox, "old");
  clock_->advance(30 * kDayMs);
  add(*outbox, "new");
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  clock_->advance(1);
  add(*outbox, "newer");
  EXPECT_EQ(outbox->counters().droppedTooOld, 1u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"new", "newer"}));
}

TEST_F(OutboxBounds, ChecksTheAgeOfEveryRequest) {
  const auto outbox = open();
  clock_->set(0);
  add(*outbox, "of 1970");
  clock_->set(kTestNowMs);
  add(*outbox, "old");
  clock_->advance(31 * kDayMs);
  add(*outbox, "new");
  EXPECT_EQ(outbox->counters().droppedTooOld, 2u);
  EXPECT_EQ(takeAll(*outbox), Bodies{"new"});
}

TEST_F(OutboxBounds, ExpiresNothingWhenTheClockIsSet) {
  const auto outbox = open();
  clock_->set(5'000);
  add(*outbox, "of 1970");
  clock_->set(kTestNowMs - 40 * kDayMs);
  add(*outbox, "of July");
  clock_->set(kTestNowMs);
  add(*outbox, "of September");
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"of 1970", "of July", "of September"}));
}

TEST_F(OutboxBounds, DoesNotExpireARequestDatedInTheFuture) {
  {
    const auto outbox = open();
    clock_->advance(365 * kDayMs);
    add(*outbox, "of next year");
    clock_->set(kTestNowMs);
    add(*outbox, "of today");
    EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  }
  EXPECT_EQ(takeAll(*open()), (Bodies{"of next year", "of today"}));
}

TEST_F(OutboxBounds, ExpiresNothingAfterTheClockFellBackTo1970) {
  const auto outbox = open();
  add(*outbox, "a");
  clock_->set(0);
  add(*outbox, "b");
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b"}));
}

TEST_F(OutboxBounds, CountsAdoptedRequestsAndDropsThemFirst) {
  {
    const auto outbox = open();
    for (const char* body : {"a", "b", "c"})
      add(*outbox, body);
  }
  JXOutboxBounds bounds;
  bounds.maxRequests = 2;
  const auto outbox = open(bounds);
  add(*outbox, "d");
  EXPECT_EQ(outbox->counters().droppedTooMany, 2u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"c", "d"}));
}

TEST_F(OutboxBounds, EvictsTheOldestRequestThatIsNotInFlight) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 2;
  const auto outbox = open(bounds);
  add(*outbox, "a");
  const std::uint64_t a = outbox->take()->id;
  add(*outbox, "b");
  add(*outbox, "c");
  EXPECT_EQ(listed(), (Bodies{"a", "c"}));
  EXPECT_TRUE(outbox->markDelivered(a));
  EXPECT_EQ(outbox->counters().droppedTooMany, 1u);
  EXPECT_EQ(outbox->counters().delivered, 1u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"c"}));
}

TEST_F(OutboxBounds, KeepsARequestInFlightAndTheNewestUntilItIsRequeued) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  const auto outbox = open(bounds);
  add(*outbox, "a");
  const std::uint64_t a = outbox->take()->id;
  add(*outbox, "b");
  EXPECT_EQ(outbox->counters().queued, 2u);
  EXPECT_EQ(outbox->counters().droppedTooMany, 0u);
  outbox->requeue(a);
  EXPECT_EQ(outbox->counters().droppedTooMany, 1u);
  EXPECT_EQ(listed(), Bodies{"b"});
  EXPECT_EQ(takeAll(*outbox), Bodies{"b"});
}

TEST_F(OutboxBounds, AppliesMaxBytesToARequestInFlightWhenItIsRequeued) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 100;
  const auto outbox = open(bounds);
  outbox->add("", std::string(60, 'a'));
  const std::uint64_t a = outbox->take()->id;
  outbox->add("", std::string(60, 'b'));
  EXPECT_EQ(outbox->counters().droppedTooLarge, 0u);
  outbox->requeue(a);
  EXPECT_EQ(outbox->counters().droppedTooLarge, 1u);
  EXPECT_EQ(takeAll(*outbox), Bodies{std::string(60, 'b')});
}

TEST_F(OutboxBounds, AppliesTheAgeLimitToARequestInFlightWhenItIsRequeued) {
  const auto outbox = open();
  add(*outbox, "a");
  const std::uint64_t a = outbox->take()->id;
  clock_->advance(30 * kDayMs + 1);
  add(*outbox, "b");
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  outbox->requeue(a);
  EXPECT_EQ(outbox->counters().droppedTooOld, 1u);
  EXPECT_EQ(takeAll(*outbox), Bodies{"b"});
}

TEST_F(OutboxBounds, DeliversAnExpiredRequestThatWasInFlight) {
  const auto outbox = open();
  add(*outbox, "a");
  const std::uint64_t a = outbox->take()->id;
  clock_->advance(30 * kDayMs + 1);
  add(*outbox, "b");
  EXPECT_TRUE(outbox->markDelivered(a));
  EXPECT_EQ(outbox->counters().delivered, 1u);
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
}

TEST_F(OutboxBounds, KeepsARequestInFlightInMemoryUntilItIsRequeued) {
  JXOutboxBounds bounds;
  bounds.maxInMemory = 1;
  JXOutbox outbox(box_, bounds, clock_, nullptr, false);
  add(outbox, "a");
  const std::uint64_t a = outbox.take()->id;
  add(outbox, "b");
  EXPECT_EQ(outbox.counters().inMemory, 2u);
  outbox.requeue(a);
  EXPECT_EQ(outbox.counters().droppedNoStorage, 1u);
  EXPECT_EQ(takeAll(outbox), Bodies{"b"});
}

TEST_F(OutboxBounds, DeletesTheFilesOfManyDroppedRequests) {
  const auto outbox = open();
  for (int i = 0; i < 2'000; ++i)
    add(*outbox, std::to_string(i) + std::string(2'000, '.'));
  EXPECT_GE(segments(), 4u);
  clock_->advance(31 * kDayMs);
  add(*outbox, "new");
  EXPECT_EQ(outbox->counters().droppedTooOld, 2'000u);
  EXPECT_EQ(segments(), 1u);
  EXPECT_EQ(listed(), Bodies{"new"});
}

}  // namespace
}  // namespace jx
