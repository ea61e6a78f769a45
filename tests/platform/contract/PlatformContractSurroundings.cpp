// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <algorithm>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/storage/JXFolder.h"
#include "tests/platform/contract/PlatformContract.h"

namespace jx::test {
namespace {

using testing::Contains;

TEST_F(PlatformContract, ReturnsLanguageTags) {
  const std::regex tag("[A-Za-z]{2,3}(-[A-Za-z0-9]{1,8})*");
  for (const JXString& language : platform().preferredLanguages()) {
    EXPECT_TRUE(std::regex_match(language.toStdString(), tag)) << language;
  }
}

TEST_F(PlatformContract, ReturnsNullOrThreeCapitalsAsCurrencyCode) {
  const JXString code = platform().currencyCode();
  EXPECT_TRUE(!code.isPresent() || std::regex_match(code.toStdString(), std::regex("[A-Z]{3}")))
      << code;
}

TEST_F(PlatformContract, ReturnsNullOrANonEmptyCurrencySymbol) {
  const JXString symbol = platform().currencySymbol();
  EXPECT_TRUE(!symbol.isPresent() || symbol.testString());
}

TEST_F(PlatformContract, ReturnsAKnownDefaultEncoding) {
  const std::vector<std::uint32_t> known{
      1,  2,  3,  4,  5,  6,  7,          8,          9,          10,         11,
      12, 13, 14, 15, 21, 30, 0x8C000100, 0x90000100, 0x94000100, 0x98000100, 0x9C000100};
  EXPECT_THAT(known, Contains(platform().defaultEncoding()));
}

TEST_F(PlatformContract, ReturnsAnIanaTimeZoneName) {
  const JXString zone = platform().timeZoneName();
  EXPECT_TRUE(std::regex_match(zone.toStdString(),
                               std::regex("[A-Z][A-Za-z0-9_+-]*(/[A-Z][A-Za-z0-9_+-]*)*")))
      << zone;
}

TEST_F(PlatformContract, ReturnsTheConfiguredScreen) {
  overrides_.screen = {1280, 720};
  EXPECT_EQ(platform().screenBounds().width, 1280);
  EXPECT_EQ(platform().screenBounds().height, 720);
}

TEST_F(PlatformContract, ReturnsTwoSidesOrNoneForTheScreen) {
  const JXScreenBounds bounds = platform().screenBounds();
  EXPECT_GE(bounds.width, 0);
  EXPECT_GE(bounds.height, 0);
  EXPECT_EQ(bounds.width > 0, bounds.height > 0);
}

TEST_F(PlatformContract, ReturnsTheUserAgentOnce) {
  int calls = 0;
  platform().requestUserAgent([&](const JXString& text) {
    ++calls;
    EXPECT_TRUE(text.testString());
    EXPECT_EQ(text.view().find_first_of("\r\n"), std::string_view::npos);
  });
  EXPECT_EQ(calls, 1);
}

TEST_F(PlatformContract, ReturnsTheConfiguredUserAgentUnchanged) {
  overrides_.userAgent = "Example/1.0 (living room)";
  JXString result;
  platform().requestUserAgent([&](const JXString& text) { result = text; });
  EXPECT_EQ(result, JXString("Example/1.0 (living room)"));
}

TEST_F(PlatformContract, IgnoresAnEmptyUserAgentCallback) {
  platform().requestUserAgent(nullptr);
  EXPECT_TRUE(platform().systemName().isPresent());
}

TEST_F(PlatformContract, ReturnsOneOfFourNetworkKinds) {
  const std::vector<JXNetworkKind> kinds{JXNetworkKind::None, JXNetworkKind::Ethernet,
                                         JXNetworkKind::Wifi, JXNetworkKind::Cellular};
  EXPECT_THAT(kinds, Contains(platform().networkKind()));
}

TEST_F(PlatformContract, ReturnsTheNetworkKindOnSeveralThreads) {
  JXPlatform& shared = platform();
  const JXNetworkKind here = shared.networkKind();
  std::vector<JXNetworkKind> there(4, JXNetworkKind::None);
  std::vector<std::thread> threads;
  threads.reserve(there.size());
  for (auto& answer : there)
    threads.emplace_back([&shared, &answer] { answer = shared.networkKind(); });
  for (auto& thread : threads)
    thread.join();
  EXPECT_THAT(there, testing::Each(here));
}

TEST_F(PlatformContract, ListsTheLoopbackAddress) {
  const auto addresses = platform().interfaceAddresses();
  EXPECT_TRUE(std::any_of(addresses.begin(), addresses.end(), [](const auto& entry) {
    return entry.name.view().substr(0, 2) == "lo" &&
           entry.family == JXInterfaceAddress::Family::IPv4 && entry.word[0] == 127 &&
           entry.word[3] == 1;
  }));
}

TEST_F(PlatformContract, ReturnsAStorageFolderThatCanBeCreated) {
  const JXString folder = platform().defaultStorageFolder();
  ASSERT_TRUE(folder.testString());
  EXPECT_EQ(folder.view().front(), '/');
  EXPECT_NE(folder.view().back(), '/');
  EXPECT_EQ(makeFolder(folder.toStdString()), 0) << folder;
}

TEST_F(PlatformContract, ReportsEachTransitionOnceIfTheSystemNotifies) {
  int backgrounds = 0;
  int foregrounds = 0;
  platform().observeApplication([&](const void*) { ++backgrounds; },
                                [&](const void*) { ++foregrounds; });
  const int expected = system_.postDidEnterBackground ? 1 : 0;
  if (system_.postDidEnterBackground) system_.postDidEnterBackground();
  EXPECT_EQ(backgrounds, expected);
  EXPECT_EQ(foregrounds, 0);
  if (system_.postWillEnterForeground) system_.postWillEnterForeground();
  EXPECT_EQ(backgrounds, expected);
  EXPECT_EQ(foregrounds, expected);
}

TEST_F(PlatformContract, IgnoresEmptyTransitionCallbacks) {
  platform().observeApplication(nullptr, nullptr);
  if (system_.postDidEnterBackground) system_.postDidEnterBackground();
  if (system_.postWillEnterForeground) system_.postWillEnterForeground();
  EXPECT_TRUE(platform().systemName().isPresent());
}

TEST_F(PlatformContract, StopsObservingTransitionsWhenDestroyed) {
  int notified = 0;
  platform().observeApplication([&](const void*) { ++notified; }, [&](const void*) { ++notified; });
  platform_.reset();
  if (system_.postDidEnterBackground) system_.postDidEnterBackground();
  if (system_.postWillEnterForeground) system_.postWillEnterForeground();
  EXPECT_EQ(notified, 0);
}

}  // namespace
}  // namespace jx::test
