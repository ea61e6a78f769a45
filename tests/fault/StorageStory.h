// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {

/// A ServerSide on the whole core and on a state folder that breaks, with a server that the test
/// keeps away until it has seen what the disk holds. Pauses are a few milliseconds.
class StorageStory : public ServerSideFixture {
 protected:
  StorageStory();

  /// The folder of all that the library stores; below `storage()`.
  std::string state() const { return configuration.storageFolder.toStdString(); }
  void useState(const std::string& folder) { configuration.storageFolder = folder; }
  /// Executes so many events; each becomes a request, whatever the disk says.
  void executeMany(ServerSide& serverSide, std::size_t count);
  JXDeliveryCounters counters() const { return JXNetworkManager::sharedInstance().counters(); }
  /// Waits until the disk has taken what was in memory only.
  bool waitUntilOnDisk() const;
  /// What another process would find in the queue, in the order of the alphabet.
  std::vector<std::string> onDisk() const;
  /// The bodies of the events executed, without `dropped` ones from number `from` on, in the order
  /// of the alphabet.
  std::vector<std::string> executed(std::size_t from = 0, std::uint64_t dropped = 0) const;
  /// Takes the state folder away, at once and with all that it holds.
  void removeState() const;
  /// The same, and a file is in its place at that instant.
  void replaceStateByAFile() const;
  /// Lets the server answer and expects each of the bodies to come once.
  void expectEachDeliveredOnce(std::vector<std::string> bodies);
  /// The lines up to level 3 that tell of storage.
  std::vector<std::string> storageLines() const;
  void writeRow(const std::string& order, const std::string& fault, const std::string& did,
                const std::string& library, std::uint64_t held) const;

  JXTestServer server;
};

}  // namespace jx::test
