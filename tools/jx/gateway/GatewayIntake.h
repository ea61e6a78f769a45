// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "tools/jx/gateway/EventLog.h"
#include "tools/jx/gateway/GatewayHandler.h"
#include "tools/jx/gateway/GatewayMetrics.h"
#include "tools/jx/gateway/SourceRates.h"

namespace jx {

struct EventMetadata;

/// Which sources may send, by site ID: their source keys. Empty: every source.
using AllowedSources = std::map<std::int64_t, std::set<std::string>>;

struct IntakeSettings {
  AllowedSources allowed;
  std::uint32_t ratePerSource = 0;  ///< events per second; 0: no limit
  bool validates = false;           ///< events that fail go to the stream of invalid events
};

/// Passes the events of televisions to the log. The response is 204 when the log has stored the
/// event, and 503 with Retry-After when it has not, so that the television keeps it. An event that
/// does not pass validation is stored too. Thread-safe.
class GatewayIntake {
 public:
  /// Keeps references to `log` and `metrics`.
  GatewayIntake(EventLog& log, IntakeSettings settings, GatewayMetrics& metrics);

  void handle(HttpRequest request, Respond respond);

 private:
  bool isAllowed(const EventMetadata& metadata) const;
  void append(const LogEntry& entry, Respond respond);
  GatewayResponse responseTo(const LogResult& result, bool isInvalid);

  EventLog& log_;
  const IntakeSettings settings_;
  GatewayMetrics& metrics_;
  SourceRates rates_;
};

/// Returns the ID by which the broker compares events: the event ID itself if it is up to 128
/// printable ASCII characters, which can be written in a header, otherwise "sha256-" and its hash.
/// "" stays "".
std::string comparableId(std::string_view eventId);

}  // namespace jx
