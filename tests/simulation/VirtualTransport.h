// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <vector>

#include "jx/core/transfer/JXHttpTransport.h"
#include "tests/simulation/World.h"

namespace jx::simulation {

/// The network as one process sees it. A request is received, or not, at once; its response arrives
/// later. `poll` never waits.
class VirtualTransport final : public JXHttpTransport {
 public:
  VirtualTransport(World& world, int process) : world_(world), process_(process) {}

  void start(JXHttpRequest request) override;
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override;
  void wakeUp() noexcept override {}
  void abortAll() noexcept override;
  void suspend() noexcept override { isSuspended_ = true; }
  void resume() noexcept override;

  std::size_t inFlight() const { return flights_.size(); }
  /// The time of the next response.
  std::optional<std::int64_t> nextMs() const;

 private:
  struct Flight {
    JXHttpResult result;
    std::int64_t endsMs = 0;
  };
  void checkStart(const JXHttpRequest& request, Event& event);
  void countAttempt(Event& event, int status);
  Flight respond(Event& event);
  void noteResult(Event& event, const JXHttpResult& result);

  World& world_;
  const int process_;
  bool isSuspended_ = false;
  std::vector<Flight> flights_;
};

}  // namespace jx::simulation
