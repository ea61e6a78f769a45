// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/core/transfer/JXTransferSetup.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/fault/ServerStory.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {

/// A ServerSide on the whole core, from `execute` to a real server, with clocks that the test
/// moves. The network manager is the process's own, with the retry timings of production.
class FacadeStory : public ServerSideFixture {
 protected:
  FacadeStory();

  /// What a process that has ended left in the queue.
  void leaveFromEarlierProcess(const std::vector<std::string>& eventIds) const;
  /// Starts the network manager, and the library with this behaviour.
  std::shared_ptr<ServerSide> startWith(std::int32_t defaultBehaviour);
  /// Time passes, and whatever that made due has been done when this returns.
  bool advance(std::chrono::milliseconds passed);
  bool waitForFailedTries(std::uint64_t count);
  bool deliverAll() const;
  JXDeliveryCounters counters() const { return manager.counters(); }
  /// The bodies of all events that were executed, in their order.
  std::vector<std::string> executed() const;
  /// The bodies of the requests that were begun, in their order.
  std::vector<std::string> begun() const { return seen_->begun.all(); }
  static void post(std::string_view name);

  StoryTime time;
  JXTestServer server;
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();

 private:
  // The transfer thread may outlive the test.
  struct Seen {
    JXCollected<std::string> begun;
    JXCollected<int> maintained;
  };
  class Transport;

  bool turn();

  std::shared_ptr<Seen> seen_ = std::make_shared<Seen>();
};

}  // namespace jx::test
