// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/facade/ServerSide.h"
#include "tests/soak/Server.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {

/// Options of the process under test.
struct LoadOptions {
  bool tls = false;
  std::chrono::milliseconds syncDelay{1'000};
  JXDeliveryCallback onDelivery;
};

/// A ServerSide of this process whose threads execute events as fast as the server accepts them.
/// Create one per process.
class LoadedSide {
 public:
  explicit LoadedSide(const LoadOptions& options);
  ~LoadedSide();
  LoadedSide(const LoadedSide&) = delete;
  LoadedSide& operator=(const LoadedSide&) = delete;

  ServerSide& serverSide() const { return *serverSide_; }
  /// Starts threads that execute events until `endLoad`.
  void startLoad(int threads);
  void endLoad();
  /// Executes an event, in the state of the ServerSide.
  void execute() const;

  /// Returns the number of events that were queued.
  std::uint64_t posted() const { return posted_.load(); }
  /// Returns the number of requests in the queue.
  static std::uint64_t queued();
  /// Returns whether the folder contains the mark of a stop.
  bool hasMark() const;
  /// Ends the server and returns the number of different events that it received.
  std::size_t endServer() { return server_.end(); }

 private:
  const test::TemporaryFolder& folder_;
  ServerProcess server_;
  std::atomic<std::uint64_t> posted_{0};
  std::shared_ptr<ServerSide> serverSide_;
  std::atomic<bool> isEnding_{false};
  std::vector<std::thread> threads_;
};

/// Waits until the condition is true. Throws std::runtime_error with `what` after a minute.
void waitUntil(const std::function<bool()>& condition, const std::string& what);

}  // namespace jx::soak
