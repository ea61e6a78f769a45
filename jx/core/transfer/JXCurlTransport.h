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

/// How requests leave the device.
struct JXHttpOptions {
  JXString caFile;  ///< the only certificates trusted; absent: those of the system
  JXString proxy;   ///< absent: what the environment says; "" for none
  JXString userAgent;
  /// Pins as JXCoreConfiguration tells them; empty: any key that a trusted certificate vouches for.
  std::vector<std::string> pinnedPublicKeys;
  std::chrono::milliseconds connectTimeout{10'000};
  std::chrono::milliseconds requestTimeout{30'000};
};

/// HTTP by libcurl. HTTPS only, TLS 1.2 or later, certificate and host name checked; plain HTTP
/// only to the device itself, and such requests go through no proxy. Redirects are not followed.
/// Connections, four at most, are kept for further requests; with HTTP/2 one serves all. Of an
/// answer at most 64 KiB are read, and its content is dropped: once the status and the headers are
/// there, the answer counts, whatever becomes of the rest.
class JXCurlTransport final : public JXHttpTransport {
 public:
  /// Throws std::bad_alloc when libcurl cannot be started.
  explicit JXCurlTransport(const JXHttpOptions& options);
  /// Does not wait for the network. With a libcurl before 7.87 it may wait for a name resolution.
  ~JXCurlTransport() override;

  void start(JXHttpRequest request) override;
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override;
  void wakeUp() noexcept override;
  void abortAll() noexcept override;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace jx
