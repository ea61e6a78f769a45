// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/fault/ServerScenario.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {

/// A ServerSide on the complete core, from `execute` to a real server, with clocks that the test
/// advances. It uses the network manager of the process, with the default retry timings.
class FacadeScenario : public ServerSideFixture {
 protected:
  FacadeScenario();

  /// Queues these events like an earlier process that has ended.
  void leaveFromEarlierProcess(const std::vector<std::string>& eventIds) const;
  /// Starts the network manager, and the library with this default behaviour.
  std::shared_ptr<ServerSide> startWith(std::int32_t defaultBehaviour);
  /// Advances the clocks. All work that became due is done when this returns.
  bool advance(std::chrono::milliseconds passed);
  bool waitForFailedAttempts(std::uint64_t count);
  bool deliverAll() const;
  JXDeliveryCounters counters() const { return manager.counters(); }
  /// Returns the bodies of all executed events, in order.
  std::vector<std::string> executed() const;
  /// Returns the bodies of the started requests, in order.
  std::vector<std::string> started() const { return seen_->started.all(); }
  static void post(std::string_view name);

  ScenarioTime time;
  JXTestServer server;
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();

 private:
  // The transfer thread may outlive the test.
  struct Seen {
    JXCollected<std::string> started;
    JXCollected<int> maintained;
  };
  class Transport;

  bool turn();

  std::shared_ptr<Seen> seen_ = std::make_shared<Seen>();
};

}  // namespace jx::test
