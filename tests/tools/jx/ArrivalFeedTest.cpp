// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ArrivalFeed.h"

#include <gtest/gtest.h>
#include <poll.h>

namespace jx {
namespace {

using Kind = ArrivalFeed::Signal::Kind;

bool isCalled(const ArrivalFeed::Watch& watch) {
  pollfd state{watch.fd(), POLLIN, 0};
  return ::poll(&state, 1, 0) == 1;
}

TEST(ArrivalFeed, AWatcherIsCalledUntilItAsks) {
  ArrivalFeed feed;
  ArrivalFeed::Watch watch(feed);
  EXPECT_FALSE(isCalled(watch));
  feed.arrived(1);
  feed.arrived(2);
  EXPECT_TRUE(isCalled(watch));
  EXPECT_EQ(watch.take().last, 2);
  EXPECT_FALSE(isCalled(watch));
  feed.arrived(3);
  EXPECT_TRUE(isCalled(watch));
}

TEST(ArrivalFeed, EachWatcherHearsEachSignalOnce) {
  ArrivalFeed feed;
  ArrivalFeed::Watch early(feed);
  feed.tell({Kind::Repeat, 1, 1, {}});
  ArrivalFeed::Watch late(feed);
  feed.tell({Kind::Reset, 1, 0, {}});
  EXPECT_EQ(early.take().signals.size(), 2u);
  EXPECT_EQ(early.take().signals.size(), 0u);
  EXPECT_EQ(late.take().signals.size(), 1u);
}

TEST(ArrivalFeed, AWatcherThatAsksTooLateIsToldSo) {
  ArrivalFeed feed;
  ArrivalFeed::Watch watch(feed);
  for (int i = 0; i < 4096; ++i)
    feed.tell({Kind::Repeat, i, 1, {}});
  EXPECT_FALSE(watch.take().fellBehind);
  for (int i = 0; i < 5000; ++i)
    feed.tell({Kind::Repeat, i, 1, {}});
  const ArrivalFeed::News news = watch.take();
  EXPECT_TRUE(news.fellBehind);
  EXPECT_EQ(news.signals.size(), 4096u);
  EXPECT_FALSE(watch.take().fellBehind);
}

}  // namespace
}  // namespace jx
