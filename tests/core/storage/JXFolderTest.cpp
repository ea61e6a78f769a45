// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFolder.h"

#include <gtest/gtest.h>

#include "tests/core/storage/JXTemporaryFolder.h"

namespace jx {
namespace {

TEST(Folder, FindsAFileWithSuffixOnlyIfItExists) {
  const TemporaryFolder folder;
  const std::string path = folder.file("outbox");
  ASSERT_EQ(makeFolder(path), 0);
  EXPECT_FALSE(mayContainFileWithSuffix(path, ".purge"));
  writeFile(path + "/purge", "");
  writeFile(path + "/segment.purge.17", "");
  EXPECT_FALSE(mayContainFileWithSuffix(path, ".purge"));
  writeFile(path + "/segment.purge", "");
  EXPECT_TRUE(mayContainFileWithSuffix(path, ".purge"));
}

TEST(Folder, MayContainAnySuffixWhenItCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_TRUE(mayContainFileWithSuffix(folder.file("missing"), ".purge"));
}

}  // namespace
}  // namespace jx
