// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jx/Result.h"

namespace jx {

/// An event received by the collector, with the columns of the table.
struct Arrival {
  std::int64_t timestampMs = 0;  ///< time of execution; 0 when unknown
  std::string name;
  std::string eventId;
  std::size_t bytes = 0;
  std::int64_t repeats = 0;
  bool opensSession = false;
  std::string details;  ///< fields except the name: "title=\"Seven Winters\" megabytes=1843.2"
};

/// Parses a response of the collector's API to a query for events. The details omit `commonKeys`,
/// which every event contains.
Result<std::vector<Arrival>> readArrivals(std::string_view json,
                                          const std::vector<std::string>& commonKeys);

/// Requests the first 1,000 events from the collector on this machine, in order of arrival.
Result<std::vector<Arrival>> fetchArrivals(int webPort, const std::vector<std::string>& commonKeys);

}  // namespace jx
