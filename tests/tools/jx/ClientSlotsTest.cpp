// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ClientSlots.h"

#include <gtest/gtest.h>

#include <vector>

#include "tools/jx/collector/MemoryBudget.h"

namespace jx {
namespace {

TEST(ClientSlots, LimitsEachClientAndTheTotal) {
  ClientSlots slots(3, 2);
  const auto first = slots.acquire("192.0.2.1");
  auto second = slots.acquire("192.0.2.1");
  EXPECT_TRUE(first.slot && second.slot);
  EXPECT_EQ(slots.acquire("192.0.2.1").status, 429);
  const auto other = slots.acquire("192.0.2.2");
  EXPECT_TRUE(other.slot);
  EXPECT_EQ(slots.acquire("192.0.2.3").status, 503);
  second.slot.reset();
  EXPECT_TRUE(slots.acquire("192.0.2.1").slot);
}

TEST(ClientSlots, LimitsLoopbackClientsByTheTotalOnly) {
  ClientSlots slots(3, 1);
  std::vector<ClientSlots::Acquired> taken;
  for (const char* address : {"127.0.0.1", "127.0.0.1", "::1"})
    taken.push_back(slots.acquire(address));
  for (const auto& acquired : taken)
    EXPECT_TRUE(acquired.slot);
  EXPECT_EQ(slots.acquire("127.0.0.1").status, 503);
  ClientSlots limited(3, 1, true);
  const auto first = limited.acquire("127.0.0.1");
  EXPECT_EQ(limited.acquire("127.0.0.2").status, 429);
}

TEST(ClientSlots, CountsAnIpv6NetworkAsOneClient) {
  EXPECT_EQ(clientOf("2001:db8::1"), clientOf("2001:db8::2"));
  EXPECT_NE(clientOf("2001:db8:0:1::1"), clientOf("2001:db8::1"));
  EXPECT_EQ(clientOf("::ffff:192.0.2.1"), clientOf("192.0.2.1"));
  EXPECT_EQ(clientOf("::ffff:127.0.0.1"), "");
  EXPECT_NE(clientOf("192.0.2.1"), clientOf("192.0.2.2"));
}

TEST(MemoryBudget, RefusesBytesAboveTheLimitUntilOthersAreReleased) {
  MemoryBudget budget(100, 0);
  MemoryBudget::Share first(budget);
  MemoryBudget::Share second(budget);
  EXPECT_TRUE(first.grow(60));
  EXPECT_FALSE(second.grow(41));
  EXPECT_TRUE(second.grow(40));
  EXPECT_FALSE(first.grow(1));
  second.release();
  EXPECT_TRUE(first.grow(40));
}

TEST(MemoryBudget, AcceptsSmallSharesWhileOthersUseTheLimit) {
  MemoryBudget budget(100, 10);
  MemoryBudget::Share large(budget);
  EXPECT_TRUE(large.grow(110));
  MemoryBudget::Share small(budget);
  EXPECT_TRUE(small.grow(6));
  EXPECT_TRUE(small.grow(4));
  EXPECT_FALSE(small.grow(1));
  small.release();
  EXPECT_TRUE(small.grow(10));
}

TEST(MemoryBudget, AcceptsOneShareOfAnySize) {
  MemoryBudget budget(100, 0);
  MemoryBudget::Share only(budget);
  EXPECT_TRUE(only.grow(60));
  EXPECT_TRUE(only.grow(1000));
  MemoryBudget::Share other(budget);
  EXPECT_FALSE(other.grow(1));
}

}  // namespace
}  // namespace jx
