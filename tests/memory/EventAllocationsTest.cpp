// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/events/ecommerce/JXPurchaseEvent.h"
#include "jx/facade/ServerSide.h"
#include "tests/memory/FailingMemory.h"
#include "tests/support/JXFakePlatform.h"

namespace jx {
namespace {

using test::Failing;
using test::FailingMemory;

std::shared_ptr<JXPurchaseEvent> purchase(int items) {
  auto event = JXPurchaseEvent::init();
  event->setID("536365");
  event->setRevenue(JXDecimal(139));
  for (int i = 0; i < items; ++i) {
    // The name has 38 bytes, the most that a string stores in place.
    const auto product = JXProduct::initWithProductId_withName_withPrice(
        "85123A", "WHITE HANGING HEART T-LIGHT HOLDER BIG", JXDecimal(2));
    product->categories().append("home");
    product->categories().append("lighting");
    event->items().append(JXItem::initWithItemId_withProduct_withQuantity("536365-0", product, 6));
  }
  return event;
}

// Returns how many allocations the operation needs.
template <typename Operation>
std::size_t allocationsOf(const Operation& operation) {
  for (std::size_t succeeding = 0;; ++succeeding) {
    const FailingMemory memory(succeeding, Failing::OnlyOne);
    try {
      operation();
    } catch (const std::bad_alloc&) {
    }
    if (!memory.hasFailed()) return succeeding;
  }
}

TEST(EventAllocations, AnEventIsOneBlock) {
  EXPECT_EQ(allocationsOf([] { JXPurchaseEvent::init(); }), 1U);
  EXPECT_EQ(allocationsOf([] { JXProduct::init(); }), 1U);
  EXPECT_EQ(allocationsOf([] { JXItem::init(); }), 2U);  // with its product
}

TEST(EventAllocations, APurchaseWithFourItemsNeedsFourteenBlocks) {
  // The event and its list, and for each item: the item, its product and the categories.
  EXPECT_EQ(allocationsOf([] { purchase(4); }), 2U + 4U * 3U);
}

TEST(EventAllocations, ExecutingAnEventAllocatesItsBody) {
  JXCoreConfiguration configuration;
  const auto platform = std::make_shared<test::JXFakePlatform>();
  platform->hasUserDefaults = false;  // its strings need memory
  configuration.platform = platform;
  configuration.dryRun = true;
  configuration.logLevel = 0;
  ASSERT_TRUE(JXCoreConfiguration::set(configuration));
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
  const auto event = purchase(4);
  for (int i = 0; i < 3; ++i)
    serverSide->execute(event);
  EXPECT_EQ(allocationsOf([&] { serverSide->execute(event); }), 1U);
}

}  // namespace
}  // namespace jx
