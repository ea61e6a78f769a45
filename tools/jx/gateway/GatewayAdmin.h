// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <optional>
#include <string_view>

#include "tools/jx/gateway/EventLog.h"
#include "tools/jx/gateway/GatewayHandler.h"
#include "tools/jx/gateway/GatewayMetrics.h"

namespace jx {

/// What the gateway reports to balancers and to monitoring. Thread-safe.
class GatewayAdmin {
 public:
  /// Keeps references to `log` and `metrics`.
  GatewayAdmin(const EventLog& log, const GatewayMetrics& metrics) : log_(log), metrics_(metrics) {}

  /// Responds to /healthz, which is 200 while the process works, and to /readyz, which is 200 while
  /// events can be stored. Returns nullopt for other paths.
  std::optional<GatewayResponse> health(std::string_view path) const;
  /// Responds to all paths of the admin port. `usage` is that of the server for televisions.
  GatewayResponse respond(const HttpRequest& request, const GatewayUsage& usage) const;
  /// From now on /readyz is 503, so that balancers use another gateway.
  void stopBeingReady() { isStopping_ = true; }

 private:
  const EventLog& log_;
  const GatewayMetrics& metrics_;
  std::atomic<bool> isStopping_{false};
};

}  // namespace jx
