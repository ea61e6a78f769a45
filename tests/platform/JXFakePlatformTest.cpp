// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXFakePlatform.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/ScopedEnvironment.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

TEST(JXFakePlatform, IncrementsUUIDsInHexadecimal) {
  JXFakePlatform platform;
  EXPECT_EQ(platform.newUUID(), JXString("00000000-0000-4000-8000-000000000001"));
  for (int i = 0; i < 8; ++i)
    platform.newUUID();
  EXPECT_EQ(platform.newUUID(), JXString("00000000-0000-4000-8000-00000000000A"));
  EXPECT_EQ(platform.uuidCount(), 10);
}

TEST(JXFakePlatform, StoresAndCountsDefaultsAndCanOmitThem) {
  JXFakePlatform platform;
  platform.defaults.preset("old", "1");
  ASSERT_EQ(platform.userDefaults(), &platform.defaults);
  EXPECT_EQ(platform.userDefaults()->objectForKey("old"), JXString("1"));
  EXPECT_EQ(platform.userDefaults()->objectForKey("none"), JXString());
  platform.userDefaults()->setObject_forKey("2", "new");
  platform.userDefaults()->setObject_forKey(nullptr, "old");
  platform.userDefaults()->synchronize();
  EXPECT_EQ(platform.defaults.entries(), (std::map<std::string, JXString>{{"new", "2"}}));
  EXPECT_EQ(platform.defaults.setCount(), 2);
  EXPECT_EQ(platform.defaults.setCount("new"), 1);
  EXPECT_EQ(platform.defaults.setCount("none"), 0);
  EXPECT_EQ(platform.defaults.synchronizeCount(), 1);
  platform.hasUserDefaults = false;
  EXPECT_EQ(platform.userDefaults(), nullptr);
}

TEST(JXFakePlatform, ReturnsTheUserAgentImmediatelyOrLater) {
  JXFakePlatform platform;
  std::vector<JXString> received;
  const auto keep = [&received](const JXString& value) { received.push_back(value); };
  platform.requestUserAgent(keep);
  platform.userAgentAnswersLater = true;
  platform.requestUserAgent(keep);
  EXPECT_EQ(received, std::vector<JXString>{"ExampleAgent/1.0"});
  EXPECT_EQ(platform.answerUserAgent("Late/2"), 1);
  EXPECT_EQ(platform.answerUserAgent("Late/3"), 0);
  EXPECT_EQ(received, (std::vector<JXString>{"ExampleAgent/1.0", "Late/2"}));
  EXPECT_EQ(platform.userAgentRequestCount(), 2);
}

TEST(JXFakePlatform, NotifiesObserversOnRequest) {
  JXFakePlatform platform;
  EXPECT_FALSE(platform.enterBackground());
  std::string calls;
  platform.observeApplication([&calls](const void*) { calls += 'B'; },
                              [&calls](const void*) { calls += 'F'; });
  EXPECT_TRUE(platform.enterBackground());
  EXPECT_TRUE(platform.enterForeground());
  EXPECT_EQ(calls, "BF");
  EXPECT_EQ(platform.observeCount(), 1);
}

TEST(TemporaryFolder, RemovesItsContents) {
  std::string path;
  {
    const TemporaryFolder folder;
    path = folder.path();
    folder.write("a/b/file", "text");
    folder.link("a/outside", "/etc");
    ::chmod(folder.makeFolder("a/closed").c_str(), 0);
    struct stat status {};
    ASSERT_EQ(::stat(folder.path("a/b/file").c_str(), &status), 0);
    EXPECT_EQ(status.st_size, 4);
  }
  struct stat status {};
  EXPECT_NE(::lstat(path.c_str(), &status), 0);
  EXPECT_EQ(::stat("/etc", &status), 0);
}

TEST(ScopedEnvironment, RestoresThePreviousValues) {
  ::setenv("JX_TEST_KEPT", "old", 1);
  ::unsetenv("JX_TEST_NEW");
  {
    ScopedEnvironment environment;
    environment.set("JX_TEST_KEPT", "one");
    environment.set("JX_TEST_KEPT", "two");
    environment.set("JX_TEST_NEW", "three");
    EXPECT_STREQ(::getenv("JX_TEST_KEPT"), "two");
    environment.unset("JX_TEST_KEPT");
    EXPECT_EQ(::getenv("JX_TEST_KEPT"), nullptr);
  }
  EXPECT_STREQ(::getenv("JX_TEST_KEPT"), "old");
  EXPECT_EQ(::getenv("JX_TEST_NEW"), nullptr);
}

}  // namespace
}  // namespace jx::test
