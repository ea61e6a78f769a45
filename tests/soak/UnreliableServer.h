// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/simulation/Random.h"
#include "tests/support/JXTestServer.h"

namespace jx::soak {

/// A server that fails at random.
class UnreliableServer {
 public:
  explicit UnreliableServer(simulation::Random& random) : random_(random) {}

  /// Chooses the behaviour until the next call of this or of `succeed`: half of the time success.
  void choose();
  /// Responds to everything with 200.
  void succeed();

  const test::JXTestServer& server() const { return server_; }

 private:
  void failAtRandom();

  simulation::Random& random_;
  test::JXTestServer server_;
};

}  // namespace jx::soak
