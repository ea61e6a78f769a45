// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Erasing the stored data on a full disk and on a read-only one: real file systems or, if mounting
// is not allowed, simulated errors.

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <string>
#include <vector>

#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/facade/JXStoredData.h"
#include "tests/fault/SmallDisk.h"
#include "tests/support/JXFailingDisk.h"
#include "tests/support/ServerSideFixture.h"
#include "tests/support/StoredBytes.h"

namespace jx::test {
namespace {

class ErasureOnABrokenDisk : public ServerSideFixture {
 protected:
  ErasureOnABrokenDisk() {
    queueForReal();
    platform->hasUserDefaults = false;
    configuration.storageFolder = state();
    if (!disk().isMounted()) failing().heal();
  }
  // Both outlive the library.
  static SmallDisk& disk() {
    static SmallDisk mounted(storage().makeFolder("disk"), 4);
    return mounted;
  }
  static FailingDisk& failing() {
    static auto* const calls = new FailingDisk(0, 0, FailingDisk::Write::Nothing, ENOSPC);
    return *calls;
  }
  static JXErasure eraseReadOnly() {
    const std::string path = disk().path();
    if (!disk().isMounted()) {
      FailingDisk readOnly(0, 1'000, FailingDisk::Write::Nothing, EROFS);
      readOnly.includeDeletions();
      return JXStoredData::eraseAll();
    }
    EXPECT_EQ(::mount(nullptr, path.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    const JXErasure erasure = JXStoredData::eraseAll();
    EXPECT_EQ(::mount(nullptr, path.c_str(), nullptr, MS_REMOUNT, "size=4m"), 0);
    return erasure;
  }
  static std::string state() { return disk().path() + "/state"; }
};

TEST_F(ErasureOnABrokenDisk, IsCompleteWhileTheDiskIsFull) {
  const auto serverSide = make();
  const Request before = execute(*serverSide);
  const std::string event = inside(before.body, {"context"}).get("event_id").string().toStdString();
  const std::string anonymousId =
      inside(before.body, {"user"}).get("anonymous_id").string().toStdString();
  EXPECT_EQ(bytesFound(state(), {event, anonymousId}).size(), 2u);
  if (disk().isMounted()) {
    ASSERT_TRUE(disk().fill());
  } else {
    failing().fail();
  }
  const JXErasure erasure = JXStoredData::eraseAll();
  if (disk().isMounted()) {
    // The deleted files leave space for the mark.
    EXPECT_TRUE(erasure.isComplete);
    EXPECT_EQ(erasure.left, std::vector<std::string>());
    EXPECT_EQ(filesBelow(state()), std::vector<std::string>{"erased"});
  } else {
    EXPECT_FALSE(erasure.isComplete);
    EXPECT_EQ(erasure.left.back(),
              state() +
                  "/erased: No space left on device; another process that uses the folder "
                  "may write its values again");
    EXPECT_EQ(filesBelow(state()), std::vector<std::string>());
    failing().heal();
  }
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 0u);
  EXPECT_NE(inside(execute(*serverSide).body, {"user"}).get("anonymous_id").string(),
            JXString(anonymousId));
}

TEST_F(ErasureOnABrokenDisk, ReportsEachFileOfAReadOnlyDisk) {
  storage().write("disk/state/defaults", "identifiers");
  storage().write("disk/state/outbox/dead", "event");
  start();
  const JXErasure erasure = eraseReadOnly();
  EXPECT_FALSE(erasure.isComplete);
  const std::string cause = ": Read-only file system";
  EXPECT_EQ(erasure.left,
            (std::vector<std::string>{
                state() + "/outbox/dead" + cause, state() + "/defaults" + cause,
                state() + "/erased" + cause +
                    "; another process that uses the folder may write its values again"}));
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(filesBelow(state()), std::vector<std::string>{"erased"});
}

TEST_F(ErasureOnABrokenDisk, ReportsFilesOfAFolderThatCannotBeChanged) {
  const std::string folder = storage().path("locked");
  configuration.storageFolder = folder;
  storage().write("locked/defaults", "identifiers");
  std::filesystem::permissions(storage().path(), std::filesystem::perms::all);
  start();
  const OrdinaryUser user(folder);
  std::filesystem::permissions(
      folder, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  const JXErasure erasure = JXStoredData::eraseAll();
  std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
  ASSERT_EQ(erasure.left.size(), 2u);
  EXPECT_EQ(erasure.left[0], folder + "/defaults: Permission denied");
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(filesBelow(folder), std::vector<std::string>{"erased"});
}

}  // namespace
}  // namespace jx::test
