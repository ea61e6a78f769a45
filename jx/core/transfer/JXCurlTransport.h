// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "jx/core/transfer/JXHttpTransport.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Options of the HTTP transport.
struct JXHttpOptions {
  JXString caFile;     ///< PEM file with the only trusted certificates; null: the system's
  JXString proxy;      ///< proxy URL; "" for none; null: the environment's
  JXString userAgent;  ///< value of the User-Agent header; null: no such header
  /// Pins as in JXCoreConfiguration; empty: any key of a trusted certificate.
  std::vector<std::string> pinnedPublicKeys;
  std::chrono::milliseconds connectTimeout{10'000};
  std::chrono::milliseconds requestTimeout{30'000};
};

/// HTTP transport based on libcurl. Uses HTTPS with TLS 1.2 or later and verifies certificate and
/// host name. Plain HTTP is allowed only to the device itself; such requests use no proxy.
/// Redirects are not followed. At most eight connections are kept and reused; with HTTP/2 one
/// serves all.
///
/// Reads at most 64 KiB of a response and discards the body. A response is valid as soon as its
/// status and headers are complete, even when the body then fails.
class JXCurlTransport final : public JXHttpTransport {
 public:
  /// Initialises libcurl with the first request if that is safe; see JXCurlLibrary.
  explicit JXCurlTransport(const JXHttpOptions& options);
  /// Does not wait for the network. With libcurl before 7.87 it may wait for a name resolution.
  ~JXCurlTransport() override;

  /// Throws std::runtime_error when libcurl cannot be initialised; a later request tries again.
  void start(JXHttpRequest request) override;
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override;
  void wakeUp() noexcept override;
  void abortAll() noexcept override;
  void suspend() noexcept override;
  void resume() noexcept override;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace jx
