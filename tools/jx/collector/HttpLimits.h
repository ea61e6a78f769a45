// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>

namespace jx {

/// What one client may take of the server.
struct HttpLimits {
  std::size_t headBytes = std::size_t{256} * 1024;
  std::size_t bodyBytes = std::size_t{16} * 1024 * 1024;
  std::size_t uploadBytes = std::size_t{1024} * 1024 * 1024;  ///< of a body that is read in parts
  std::size_t pathBytes = 1024;
  /// A body as it travels: chunks have a frame, which must not be without bounds either.
  std::size_t bodyWireBytes() const { return 2 * bodyBytes + headBytes; }

  /// As long as a client waits for its whole request: giving up earlier, when many devices come at
  /// once, would only make them come again.
  std::chrono::milliseconds handshake{30'000};
  std::chrono::milliseconds idle{30'000};      ///< between two requests
  std::chrono::milliseconds silence{10'000};   ///< without a byte inside a request or an answer
  std::chrono::milliseconds request{60'000};   ///< from its first byte to its last
  std::chrono::milliseconds upload{600'000};   ///< the same of a body that is read in parts
  std::chrono::milliseconds lingering{2'000};  ///< reading on after a refusal, so that it arrives
  std::chrono::milliseconds stopGrace{1'000};  ///< for what is in flight when the server stops

  std::size_t threads = 1024;      ///< a connection takes one while it is open
  std::size_t waiting = 64;        ///< answers that wait for something to happen
  std::size_t connections = 4096;  ///< open or waiting for a thread; further ones are not accepted
};

}  // namespace jx
