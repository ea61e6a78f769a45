// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {

/// A ServerSide on the complete core and on a failing storage folder. The server refuses
/// connections until the test has inspected the disk. Retry delays are a few milliseconds.
class StorageScenario : public ServerSideFixture {
 protected:
  StorageScenario();

  /// Returns the storage folder of the library; below `storage()`.
  std::string state() const { return configuration.storageFolder.toStdString(); }
  void useState(const std::string& folder) { configuration.storageFolder = folder; }
  /// Executes `count` events and expects a request for each, regardless of disk errors.
  void executeMany(ServerSide& serverSide, std::size_t count);
  JXDeliveryCounters counters() const { return JXNetworkManager::sharedInstance().counters(); }
  /// Waits until all events in memory are on disk.
  bool waitUntilOnDisk() const;
  /// Returns the bodies that another process would find in the queue, sorted.
  std::vector<std::string> onDisk() const;
  /// Returns the bodies of the executed events without `dropped` ones from index `from` on, sorted.
  std::vector<std::string> executed(std::size_t from = 0, std::uint64_t dropped = 0) const;
  /// Removes the storage folder and its contents atomically.
  void removeState() const;
  /// Replaces the storage folder by a file atomically.
  void replaceStateByAFile() const;
  /// Lets the server respond and expects each of the bodies once.
  void expectEachDeliveredOnce(std::vector<std::string> bodies);
  /// Returns the log messages up to level 3 that concern storage.
  std::vector<std::string> storageLines() const;
  void writeRow(const std::string& order, const std::string& fault, const std::string& did,
                const std::string& library, std::uint64_t queued) const;

  JXTestServer server;
};

}  // namespace jx::test
