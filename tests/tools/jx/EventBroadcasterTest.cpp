// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventBroadcaster.h"

#include <gtest/gtest.h>
#include <poll.h>

namespace jx {
namespace {

using Kind = EventBroadcaster::Signal::Kind;

bool isReadable(const EventBroadcaster::Subscription& subscription) {
  pollfd state{subscription.fd(), POLLIN, 0};
  return ::poll(&state, 1, 0) == 1;
}

TEST(EventBroadcaster, NotifiesASubscriberUntilItTakesTheUpdates) {
  EventBroadcaster broadcaster;
  EventBroadcaster::Subscription subscription(broadcaster);
  EXPECT_FALSE(isReadable(subscription));
  broadcaster.publishArrival(1);
  broadcaster.publishArrival(2);
  EXPECT_TRUE(isReadable(subscription));
  EXPECT_EQ(subscription.take().last, 2);
  EXPECT_FALSE(isReadable(subscription));
  broadcaster.publishArrival(3);
  EXPECT_TRUE(isReadable(subscription));
}

TEST(EventBroadcaster, DeliversEachSignalOncePerSubscriber) {
  EventBroadcaster broadcaster;
  EventBroadcaster::Subscription early(broadcaster);
  broadcaster.publish({Kind::Repeat, 1, 1, {}});
  EventBroadcaster::Subscription late(broadcaster);
  broadcaster.publish({Kind::Reset, 1, 0, {}});
  EXPECT_EQ(early.take().signals.size(), 2u);
  EXPECT_EQ(early.take().signals.size(), 0u);
  EXPECT_EQ(late.take().signals.size(), 1u);
}

TEST(EventBroadcaster, ReportsLostSignalsToASlowSubscriber) {
  EventBroadcaster broadcaster;
  EventBroadcaster::Subscription subscription(broadcaster);
  for (int i = 0; i < 4096; ++i)
    broadcaster.publish({Kind::Repeat, i, 1, {}});
  EXPECT_FALSE(subscription.take().fellBehind);
  for (int i = 0; i < 5000; ++i)
    broadcaster.publish({Kind::Repeat, i, 1, {}});
  const EventBroadcaster::Updates updates = subscription.take();
  EXPECT_TRUE(updates.fellBehind);
  EXPECT_EQ(updates.signals.size(), 4096u);
  EXPECT_FALSE(subscription.take().fellBehind);
}

}  // namespace
}  // namespace jx
