// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <utility>  // awaitable.hpp of Boost 1.74 needs it

namespace jx::bench {

/// A fleet of clients that post events to a gateway on loopback over TLS, each over one connection.
struct Clients {
  int port = 0;
  std::string authorityFile;
  int connections = 1;
  std::size_t bytes = 1024;  ///< of a body
  std::chrono::milliseconds time{1'000};
};

/// Each client posts one event after the other. Prints one JSON object: events accepted and refused
/// per second, and percentiles of the time from the first byte of a request to its response.
void runClients(const Clients& clients);
/// Opens the connections, posts one event on each, prints "open", and keeps them open until
/// standard input ends.
void holdClients(const Clients& clients);

}  // namespace jx::bench
