// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tools/jx/gateway/GatewayHandler.h"
#include "tools/jx/gateway/GatewayUsage.h"

namespace jx {

/// Counts durations in buckets.
class LatencyHistogram {
 public:
  /// Upper limits of the buckets. A last one has no limit.
  static constexpr std::array<double, 14> kSeconds = {
      0.0005, 0.001, 0.0025, 0.005, 0.01, 0.025, 0.05, 0.1, 0.25, 0.5, 1, 2.5, 5, 10};

  void add(std::chrono::nanoseconds time);
  /// Appends the histogram in the text format of Prometheus.
  void appendTo(std::string& text, const std::string& name) const;

 private:
  std::array<std::atomic<std::uint64_t>, kSeconds.size() + 1> counts_{};
  std::atomic<std::uint64_t> nanoseconds_{0};
};

/// Counters of the gateway since its start.
struct GatewayMetrics {
  std::atomic<std::uint64_t> accepted{0};
  std::atomic<std::uint64_t> duplicates{0};                     ///< of the accepted events
  std::atomic<std::uint64_t> invalid{0};                        ///< of the accepted events
  std::array<std::atomic<std::uint64_t>, kRefusals> refused{};  ///< by Refusal
  LatencyHistogram acknowledgement;

  /// Returns all metrics in the text format of Prometheus.
  std::string text(const GatewayUsage& usage, bool isBrokerConnected) const;
};

}  // namespace jx
