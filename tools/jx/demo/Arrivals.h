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

/// An event as the collector tells it, in the words of its table.
struct Arrival {
  std::int64_t timestampMs = 0;  ///< when the application executed it; 0 when it does not tell
  std::string name;
  std::string eventId;
  std::size_t bytes = 0;
  std::int64_t repeats = 0;
  bool opensSession = false;
  std::string
      details;  ///< what it says beside the name: "title=\"Seven Winters\" megabytes=1843.2"
};

/// Reads the answer of the collector's JSON interface to a question for events. The details leave
/// out the keys `said`, which every event carries.
Result<std::vector<Arrival>> readArrivals(std::string_view json,
                                          const std::vector<std::string>& said);

/// Asks the collector on this machine for its first 1,000 events, in order of arrival.
Result<std::vector<Arrival>> fetchArrivals(int webPort, const std::vector<std::string>& said);

}  // namespace jx
