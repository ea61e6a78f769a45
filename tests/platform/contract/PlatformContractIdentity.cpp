// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <sys/utsname.h>
#include <unistd.h>

#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/platform/contract/PlatformContract.h"

namespace jx::test {

bool PlatformContract::isUpperCaseUUID(const JXString& text) {
  const std::string_view view = text.view();
  if (view.size() != 36) return false;
  for (std::size_t i = 0; i < view.size(); ++i) {
    const bool isHyphenPlace = i == 8 || i == 13 || i == 18 || i == 23;
    const std::string_view allowed = isHyphenPlace ? "-" : "0123456789ABCDEF";
    if (allowed.find(view[i]) == std::string_view::npos) return false;
  }
  return true;
}

namespace {

TEST_F(PlatformContract, ReturnsUUIDsOf36UpperCaseCharacters) {
  for (int i = 0; i < 100; ++i) {
    const JXString uuid = platform().newUUID();
    EXPECT_TRUE(isUpperCaseUUID(uuid)) << uuid;
  }
}

TEST_F(PlatformContract, SetsTheRandomVersionInUUIDs) {
  for (int i = 0; i < 100; ++i) {
    const JXString uuid = platform().newUUID();
    if (system_.uuidsHaveAVersion) {
      EXPECT_EQ(uuid.view()[14], '4') << uuid;
      EXPECT_NE(std::string_view("89AB").find(uuid.view()[19]), std::string_view::npos) << uuid;
    } else {
      EXPECT_EQ(uuid.size(), 36U);
    }
  }
}

TEST_F(PlatformContract, ReturnsUniqueUUIDs) {
  std::set<std::string> seen;
  for (int i = 0; i < 10'000; ++i)
    seen.insert(platform().newUUID().toStdString());
  EXPECT_EQ(seen.size(), 10'000U);
}

TEST_F(PlatformContract, ReturnsUniqueUUIDsOnAllThreads) {
  std::vector<std::vector<std::string>> created(4);
  std::vector<std::thread> threads;
  JXPlatform& shared = platform();
  threads.reserve(created.size());
  for (auto& mine : created) {
    threads.emplace_back([&shared, &mine] {
      for (int i = 0; i < 500; ++i)
        mine.push_back(shared.newUUID().toStdString());
    });
  }
  for (auto& thread : threads)
    thread.join();
  std::set<std::string> seen;
  for (const auto& part : created)
    seen.insert(part.begin(), part.end());
  EXPECT_EQ(seen.size(), 2'000U);
}

TEST_F(PlatformContract, SetsAndClearsEveryRandomBit) {
  std::uint32_t everSet = 0;
  std::uint32_t alwaysSet = 0xFFFFFFFF;
  for (int i = 0; i < 256; ++i) {
    const std::uint32_t drawn = platform().randomBits();
    everSet |= drawn;
    alwaysSet &= drawn;
  }
  EXPECT_EQ(everSet, 0xFFFFFFFF);
  EXPECT_EQ(alwaysSet, 0U);
}

TEST_F(PlatformContract, ReturnsTheProcessId) {
  EXPECT_EQ(platform().processIdentifier(), getpid());
}

TEST_F(PlatformContract, ReturnsTheConfiguredBundleUnchanged) {
  overrides_.bundle = {"com.example.tv", "Example TV", "1234", "1.2.3"};
  const JXBundleInformation result = platform().bundleInformation();
  EXPECT_EQ(result.identifier, JXString("com.example.tv"));
  EXPECT_EQ(result.name, JXString("Example TV"));
  EXPECT_EQ(result.version, JXString("1234"));
  EXPECT_EQ(result.shortVersion, JXString("1.2.3"));
}

TEST_F(PlatformContract, CompletesTheBundleFromTheSystem) {
  overrides_.bundle.name = "Example TV";
  const JXBundleInformation result = platform().bundleInformation();
  EXPECT_EQ(result.identifier, system_.systemBundle.identifier);
  EXPECT_EQ(result.name, JXString("Example TV"));
  EXPECT_EQ(result.version, system_.systemBundle.version);
  EXPECT_EQ(result.shortVersion, system_.systemBundle.shortVersion);
}

TEST_F(PlatformContract, KeepsAConfiguredEmptyString) {
  overrides_.bundle.shortVersion = "";
  EXPECT_EQ(platform().bundleInformation().shortVersion, JXString(""));
}

TEST_F(PlatformContract, ReturnsTheMachineNameOfTheKernel) {
  utsname names{};
  ASSERT_GE(uname(&names), 0);
  EXPECT_EQ(platform().machineName(), JXString(names.machine));
}

TEST_F(PlatformContract, ReturnsNonEmptySystemNameAndVersion) {
  for (const JXString& text : {platform().systemName(), platform().systemVersion()}) {
    EXPECT_TRUE(text.testString());
    EXPECT_EQ(text.view().find('\n'), std::string_view::npos) << text;
  }
}

TEST_F(PlatformContract, ReturnsNullOrAUUIDAsAdvertisingIdentifier) {
  for (const JXString& text : {platform().advertisingIdentifier(), platform().vendorIdentifier()}) {
    EXPECT_TRUE(!text.isPresent() || isUpperCaseUUID(text)) << text;
  }
}

TEST_F(PlatformContract, ReturnsAnIdentifierIfTrackingIsAllowed) {
  EXPECT_TRUE(!platform().isAdvertisingTrackingAllowed() ||
              platform().advertisingIdentifier().testString());
}

TEST_F(PlatformContract, ReturnsTheSameIntegrityResultTwice) {
  // A probe must not create files that it then detects.
  const bool first = platform().isDeviceModified();
  EXPECT_EQ(platform().isDeviceModified(), first);
}

}  // namespace
}  // namespace jx::test
