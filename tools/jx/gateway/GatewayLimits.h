// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>

namespace jx {

/// Limits on the resources that clients of the gateway can use.
struct GatewayLimits {
  std::size_t headBytes = std::size_t{16} * 1024;
  std::size_t bodyBytes = std::size_t{1024} * 1024;
  std::size_t connections = 20'000;  ///< of the process; more are closed at once
  /// Bodies that are being read or wait for the broker, of the process. Beyond this, requests are
  /// answered with 503 without reading their body.
  std::size_t bytesInFlight = std::size_t{256} * 1024 * 1024;

  std::chrono::milliseconds handshake{10'000};
  std::chrono::milliseconds idle{75'000};      ///< between two requests
  std::chrono::milliseconds request{30'000};   ///< from the first byte of a request to its last
  std::chrono::milliseconds response{30'000};  ///< until the client has read the response
  std::chrono::milliseconds lingering{
      2'000};                               ///< reading after the last response, so that it arrives
  std::chrono::milliseconds drain{20'000};  ///< for requests in flight when the gateway stops
};

}  // namespace jx
