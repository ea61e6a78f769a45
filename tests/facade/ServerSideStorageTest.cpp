// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A ServerSide with unusable or missing storage.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>
#include <utility>

#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class BrokenStorage : public ServerSideFixture {
 protected:
  BrokenStorage() {
    queueForReal();
    platform->hasUserDefaults = false;
  }
  std::vector<std::string> storageLines(const std::string& path) const {
    std::vector<std::string> found;
    for (const LogLine& line : linesUpTo(3)) {
      if (line.message.find(path) != std::string::npos) found.push_back(line.message);
    }
    return found;
  }
};

TEST_F(BrokenStorage, KeepsEventsInMemoryIfFolderCannotBeCreated) {
  // No folder can be created below a regular file, not even by the superuser.
  const std::string file = storage().write("file", "");
  configuration.storageFolder = file + "/state";
  const auto serverSide = make();
  execute(*serverSide);
  execute(*serverSide);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 2u);
  const auto messages = storageLines(file + "/state");
  EXPECT_FALSE(messages.empty());
  for (const std::string& line : messages)
    EXPECT_EQ(count({3, line}), 1u) << line;
}

TEST_F(BrokenStorage, KeepsEventsInMemoryIfFolderIsAFile) {
  configuration.storageFolder = storage().write("state", "not a folder");
  const auto serverSide = make();
  execute(*serverSide);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 1u);
  EXPECT_GE(linesUpTo(3).size(), 1u);
}

TEST_F(BrokenStorage, StartsIfVariablesFileIsAFolder) {
  storage().makeFolder("defaults");
  configuration.storageFolder = storage().path();
  const auto serverSide = make();
  EXPECT_EQ(variable(kJXPredefinedVariable_NumberVisits), JXString("1"));
  execute(*serverSide);
  EXPECT_GE(linesUpTo(3).size(), 1u);
}

TEST_F(BrokenStorage, StartsNewInstallationIfVariablesFileIsInvalid) {
  storage().write("defaults", std::string(5'000, '\xA5'));
  configuration.storageFolder = storage().path();
  const auto serverSide = make();
  EXPECT_EQ(variable(kJXPredefinedVariable_NumberVisits), JXString("1"));
  EXPECT_EQ(variable(kJXPredefinedVariable_IsFirstVisit), JXString("TRUE"));
  execute(*serverSide);
}

TEST_F(BrokenStorage, DeletesQuarantinedVariablesThatAreTooOldAfterTheStart) {
  const std::string old = storage().write("defaults.damaged-0", "garbage");
  const std::string young = storage().write("defaults.damaged-9", "garbage");
  const std::string foreign = storage().write("notes", "of the application");
  // In November 2026, 30 days and one second after the first file, 30 days after the second.
  clock->set(1'794'000'000'000);
  for (const auto& [path, seconds] :
       {std::pair(old, 1'791'407'999), {young, 1'791'408'000}, {foreign, 1'791'407'999}}) {
    const timespec times[2] = {{seconds, 0}, {seconds, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  }
  configuration.storageFolder = storage().path();
  configuration.retryTimings.syncDelay = std::chrono::milliseconds(1);
  const auto serverSide = make(2);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (::access(old.c_str(), F_OK) == 0 && std::chrono::steady_clock::now() < deadline)
    std::this_thread::yield();
  EXPECT_NE(::access(old.c_str(), F_OK), 0);
  EXPECT_EQ(::access(young.c_str(), F_OK), 0);
  EXPECT_EQ(::access(foreign.c_str(), F_OK), 0);
}

TEST_F(BrokenStorage, KeepsEventsInMemoryAndLogsOnceWithoutFolder) {
  configuration.storageFolder = nullptr;
  const auto serverSide = make();
  execute(*serverSide);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 1u);
  EXPECT_EQ(storageLines("No storage folder available").size(), 1u);
}

TEST_F(BrokenStorage, LeavesUniqueIdentifierUnsetWithoutFolder) {
  configuration.storageFolder = nullptr;
  const auto serverSide = make();
  EXPECT_FALSE(variable("#JX_UNIQUE_ID#").isPresent());
  EXPECT_EQ(variable(kJXPredefinedVariable_NumberVisits), JXString("1"));
}

}  // namespace
}  // namespace jx::test
