// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <thread>
#include <vector>

#include "jx/core/storage/JXDefaultsFile.h"
#include "tests/platform/contract/PlatformContract.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

// The settings store of the system, or the file that the library uses if there is none. Both must
// fulfil the same contract.
class DefaultsContract : public PlatformContract {
 protected:
  JXPlatformDefaults& defaults() {
    if (JXPlatformDefaults* const ofSystem = platform().userDefaults()) return *ofSystem;
    if (!file_) file_ = std::make_unique<JXDefaultsFile>(folder_.path("defaults"));
    return *file_;
  }

  TemporaryFolder folder_;
  std::unique_ptr<JXDefaultsFile> file_;
};

TEST_F(DefaultsContract, UsesTheStoreOfTheSystemIfItHasOne) {
  EXPECT_EQ(platform().userDefaults() != nullptr, system_.hasUserDefaults);
}

TEST_F(DefaultsContract, ReturnsNullForAnUnknownEntry) {
  EXPECT_EQ(defaults().objectForKey("#JX_NEVER_WRITTEN#"), JXString());
}

TEST_F(DefaultsContract, ReturnsAValueImmediatelyAfterSettingIt) {
  defaults().setObject_forKey("1700000000000", "#JX_TIME#");
  EXPECT_EQ(defaults().objectForKey("#JX_TIME#"), JXString("1700000000000"));
}

TEST_F(DefaultsContract, ReplacesAValue) {
  defaults().setObject_forKey("first", "#JX_VALUE#");
  defaults().setObject_forKey("second", "#JX_VALUE#");
  EXPECT_EQ(defaults().objectForKey("#JX_VALUE#"), JXString("second"));
}

TEST_F(DefaultsContract, KeepsAnEmptyString) {
  defaults().setObject_forKey("", "#JX_EMPTY#");
  EXPECT_EQ(defaults().objectForKey("#JX_EMPTY#"), JXString(""));
}

TEST_F(DefaultsContract, RemovesAnEntrySetToNull) {
  defaults().setObject_forKey("text", "#JX_GONE#");
  defaults().setObject_forKey(nullptr, "#JX_GONE#");
  EXPECT_EQ(defaults().objectForKey("#JX_GONE#"), JXString());
}

TEST_F(DefaultsContract, IgnoresRemovalOfAnUnknownEntry) {
  defaults().setObject_forKey("text", "#JX_OTHER#");
  defaults().setObject_forKey(nullptr, "#JX_NOT_THERE#");
  EXPECT_EQ(defaults().objectForKey("#JX_OTHER#"), JXString("text"));
}

TEST_F(DefaultsContract, ReturnsAnyStringUnchanged) {
  const std::vector<JXString> texts{"caf\xC3\xA9 \xF0\x9F\x93\xBA",
                                    "\" \\ { } ; = <plist> & \n\t",
                                    "\xFF\xFE is no UTF-8",
                                    "0042",
                                    "12.50",
                                    "YES",
                                    std::string(100'000, 'x')};
  for (const JXString& text : texts) {
    defaults().setObject_forKey(text, "#JX_TEXT#");
    EXPECT_EQ(defaults().objectForKey("#JX_TEXT#"), text);
    defaults().synchronize();
    EXPECT_EQ(defaults().objectForKey("#JX_TEXT#"), text);
  }
}

TEST_F(DefaultsContract, KeepsNulCharacters) {
  const JXString text(std::string("a\0b", 3));
  defaults().setObject_forKey(text, "#JX_NUL#");
  EXPECT_EQ(defaults().objectForKey("#JX_NUL#"), text);
}

TEST_F(DefaultsContract, SupportsConcurrentWrites) {
  JXPlatformDefaults& shared = defaults();
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&shared, t] {
      for (int i = 0; i < 50; ++i)
        shared.setObject_forKey(std::to_string(i), "#JX_THREAD_" + std::to_string(t) + "#");
    });
  }
  for (auto& thread : threads)
    thread.join();
  for (int t = 0; t < 4; ++t)
    EXPECT_EQ(shared.objectForKey("#JX_THREAD_" + std::to_string(t) + "#"), JXString("49"));
}

}  // namespace
}  // namespace jx::test
