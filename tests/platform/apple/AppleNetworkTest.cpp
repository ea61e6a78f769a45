// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <memory>

#include "jx/platform/apple/JXApplePlatform.h"
#include "jx/platform/apple/JXNetworkKind.h"
#include "tests/platform/apple/fakes/Fakes.h"

namespace jx::test {
namespace {

JXNetworkInterface up(const char* name) { return {name, true, false, true}; }

std::unique_ptr<JXApplePlatform> platformWith(const JXNetworkReading& reading = {}) {
  return std::make_unique<JXApplePlatform>(
      JXHostOverrides{}, JXAppleSystem{"", loadedClass, [reading] { return reading; }});
}

constexpr int kOther = 0;
constexpr int kWifi = 1;
constexpr int kCellular = 2;
constexpr int kWired = 3;

TEST(AppleNetwork, ReturnsTheKindOfTheSystemPath) {
  setFakePath({true, kWired});
  const auto platform = platformWith();
  EXPECT_EQ(platform->networkKind(), JXNetworkKind::Ethernet);
  setFakePath({true, kWifi});
  EXPECT_EQ(platform->networkKind(), JXNetworkKind::Wifi);
  setFakePath({true, kCellular});
  EXPECT_EQ(platform->networkKind(), JXNetworkKind::Cellular);
}

TEST(AppleNetwork, ReturnsNoneForAnUnsatisfiedPath) {
  setFakePath({false, kWifi});
  EXPECT_EQ(platformWith()->networkKind(), JXNetworkKind::None);
}

TEST(AppleNetwork, ReturnsEthernetForOtherPaths) {
  setFakePath({true, kOther});
  EXPECT_EQ(platformWith()->networkKind(), JXNetworkKind::Ethernet);
}

TEST(AppleNetwork, GuessesUntilTheFirstUpdate) {
  resetFakePath();
  JXNetworkReading reading;
  reading.interfaces = {up("en0")};
  const auto platform = platformWith(reading);
  EXPECT_EQ(platform->networkKind(), JXNetworkKind::Wifi);
  setFakePath({true, kWired});
  EXPECT_EQ(platform->networkKind(), JXNetworkKind::Ethernet);
}

TEST(AppleNetwork, StopsTheMonitorWithThePlatform) {
  EXPECT_EQ(runningFakeMonitors(), 0);
  auto platform = platformWith();
  EXPECT_EQ(runningFakeMonitors(), 1);
  platform.reset();
  EXPECT_EQ(runningFakeMonitors(), 0);
}

TEST(AppleNetworkGuess, IgnoresLoopbackTunnelsAndDeviceLinks) {
  EXPECT_EQ(guessNetworkKind({}), JXNetworkKind::None);
  EXPECT_EQ(guessNetworkKind({{"lo0", true, true, true}, up("utun0"), up("awdl0"), up("llw0")}),
            JXNetworkKind::None);
}

TEST(AppleNetworkGuess, IgnoresInterfacesThatAreDownOrHaveNoAddress) {
  EXPECT_EQ(guessNetworkKind({{"en0", false, false, true}, {"en1", true, false, false}}),
            JXNetworkKind::None);
}

TEST(AppleNetworkGuess, UsesTheFirstUsableInterface) {
  EXPECT_EQ(guessNetworkKind({{"en0", false, false, true}, up("pdp_ip0")}),
            JXNetworkKind::Cellular);
  EXPECT_EQ(guessNetworkKind({up("en1"), up("pdp_ip0")}), JXNetworkKind::Wifi);
}

}  // namespace
}  // namespace jx::test
