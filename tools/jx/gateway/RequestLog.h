// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>

#include "tools/jx/gateway/GatewayHandler.h"
#include "tools/jx/gateway/GatewayMetrics.h"
#include "tools/jx/gateway/JsonLog.h"

namespace jx {

/// Which requests are logged.
enum class AccessLog { None, Errors, All };

/// Counts and logs the responses of the gateway. Contains no address of a client and no part of an
/// event. Thread-safe.
class RequestLog {
 public:
  /// Keeps references to `log` and `metrics`.
  RequestLog(JsonLog& log, GatewayMetrics& metrics, AccessLog selection)
      : log_(log), metrics_(metrics), selection_(selection) {}

  void add(const GatewayExchange& exchange);
  /// Allows further lines of errors, and logs how many were left out. Called once a second: a flood
  /// of bad requests does not fill the disk.
  void renew();

 private:
  JsonLog& log_;
  GatewayMetrics& metrics_;
  const AccessLog selection_;
  std::atomic<std::uint64_t> errors_{0};  // since `renew`
};

}  // namespace jx
