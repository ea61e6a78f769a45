// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/OpenSslHandles.h"
#include "tools/jx/gateway/GatewayHandler.h"
#include "tools/jx/gateway/GatewayLimits.h"
#include "tools/jx/gateway/GatewayUsage.h"

namespace jx {

/// An event-driven HTTP/1.1 server, plain or TLS. Each thread has its own listening socket, to
/// which the system assigns connections, and serves them to their end.
class GatewayServer {
 public:
  /// Listens on an IP address. Port 0 selects a free port. A null `tls` makes the server plain.
  /// `handler` may call its `Respond` until the destructor of the server begins.
  static Result<std::unique_ptr<GatewayServer>> start(const std::string& address, int port,
                                                      unsigned threads, SslContextHandle tls,
                                                      const GatewayLimits& limits,
                                                      GatewayHandler handler,
                                                      GatewayObserver observer);
  /// Calls stop().
  ~GatewayServer();

  int port() const;
  const GatewayUsage& usage() const { return usage_; }
  /// Accepts no more connections, closes idle ones, and waits for the others to end, up to the time
  /// limit. Returns whether all complete requests were answered.
  bool drain();
  /// Ends the threads. The handler is not called any more; a `Respond` may be, without effect.
  void stop();

 private:
  class Worker;

  GatewayServer(SslContextHandle tls, const GatewayLimits& limits, GatewayHandler handler,
                GatewayObserver observer);

  const SslContextHandle tls_;
  const GatewayLimits limits_;
  const GatewayHandler handler_;
  const GatewayObserver observer_;
  GatewayUsage usage_;
  std::vector<std::unique_ptr<Worker>> workers_;
};

}  // namespace jx
