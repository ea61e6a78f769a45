// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>

namespace jx {

/// Limits on the resources that clients can use.
struct HttpLimits {
  std::size_t headBytes = std::size_t{256} * 1024;
  std::size_t bodyBytes = std::size_t{16} * 1024 * 1024;
  std::size_t uploadBytes =
      std::size_t{1024} * 1024 * 1024;  ///< maximum size of a body that is read in parts
  std::size_t pathBytes = 1024;
  /// Maximum size of a body on the wire. Includes the framing of chunks, which needs a limit as
  /// well.
  std::size_t bodyWireBytes() const { return 2 * bodyBytes + headBytes; }

  /// As long as clients wait for a whole request. With a shorter limit, many devices that connect
  /// at once would time out and reconnect.
  std::chrono::milliseconds handshake{30'000};
  std::chrono::milliseconds idle{30'000};     ///< between two requests
  std::chrono::milliseconds silence{10'000};  ///< without a byte, inside a request or response
  std::chrono::milliseconds request{60'000};  ///< from its first byte to its last
  std::chrono::milliseconds upload{600'000};  ///< same, for a body that is read in parts
  std::chrono::milliseconds lingering{
      2'000};  ///< reading after a rejection, so that the client gets the response
  std::chrono::milliseconds stopGrace{1'000};  ///< for requests in flight when the server stops

  /// Bytes of requests and responses that a server holds for all connections. One request always
  /// fits while no other holds any.
  std::size_t memory = std::size_t{256} * 1024 * 1024;
  /// Bytes of each request and its response that are not counted.
  std::size_t uncounted = std::size_t{64} * 1024;

  std::size_t threads = 1024;        ///< each open connection uses one
  std::size_t waiting = 64;          ///< responses that wait for events
  std::size_t waitingOfClient = 16;  ///< of them for one client, unless it is on loopback
  std::size_t transfers = 2;         ///< imports and exports
  std::size_t connections = 4096;    ///< open or waiting for a thread; more are not accepted
  /// Of them for one client, unless it is on loopback.
  std::size_t connectionsOfClient = 256;
  bool limitsLoopback = false;  ///< apply the limits of one client to loopback too
};

}  // namespace jx
