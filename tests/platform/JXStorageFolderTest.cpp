// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXStorageFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

TEST(StorageFolder, PrefersXdgStateHome) {
  EXPECT_EQ(storageFolder({{"XDG_STATE_HOME", "/data/state"}, {"HOME", "/home/tv"}}, nullptr),
            JXString("/data/state/jxserverside"));
}

TEST(StorageFolder, FallsBackToTheHomeFolder) {
  EXPECT_EQ(storageFolder({{"HOME", "/home/tv"}}, nullptr),
            JXString("/home/tv/.local/state/jxserverside"));
}

TEST(StorageFolder, ReturnsNullWithoutEither) {
  EXPECT_EQ(storageFolder({}, "com.example.tv"), JXString());
  EXPECT_EQ(storageFolder({{"HOME", ""}, {"XDG_STATE_HOME", ""}}, nullptr), JXString());
}

TEST(StorageFolder, IgnoresRelativeAndOverlongPaths) {
  EXPECT_EQ(storageFolder({{"XDG_STATE_HOME", "state"}, {"HOME", "/home/tv"}}, nullptr),
            JXString("/home/tv/.local/state/jxserverside"));
  EXPECT_EQ(storageFolder({{"HOME", "/" + std::string(10000, 'h')}}, nullptr), JXString());
}

TEST(StorageFolder, ReturnsOneFolderPerApplication) {
  const JXEnvironment environment{{"HOME", "/home/tv"}};
  EXPECT_EQ(storageFolder(environment, "com.example.tv-2_b"),
            JXString("/home/tv/.local/state/jxserverside/com.example.tv-2_b"));
  EXPECT_EQ(storageFolder(environment, ""), JXString("/home/tv/.local/state/jxserverside"));
}

TEST(StorageFolder, ReplacesUnsafeCharactersOfTheIdentifier) {
  const JXEnvironment environment{{"HOME", "/h"}};
  EXPECT_EQ(storageFolder(environment, "../../etc"),
            JXString("/h/.local/state/jxserverside/_._.._etc"));
  EXPECT_EQ(storageFolder(environment, ".."), JXString("/h/.local/state/jxserverside/_."));
  EXPECT_EQ(storageFolder(environment, JXString(std::string_view("a\0/\xff b", 6))),
            JXString("/h/.local/state/jxserverside/a____b"));
  EXPECT_EQ(storageFolder(environment, JXString(std::string(500, 'a'))),
            JXString("/h/.local/state/jxserverside/" + std::string(128, 'a')));
}

}  // namespace
}  // namespace jx
