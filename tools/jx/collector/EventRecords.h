// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/jx/collector/EventMetadata.h"

namespace jx {

/// A request as it arrived. Any bytes may stand in any part of it.
struct ReceivedRequest {
  std::int64_t receivedMs = 0;  ///< milliseconds since the Unix epoch
  std::string method;
  std::string path;
  std::string query;  ///< what follows the question mark, as it was written
  /// Names and values as they were sent; a name may come more than once.
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
};

/// What is shown of a request in a list: everything but the request itself.
struct EventRow {
  std::int64_t id = 0;  ///< row number; a later arrival has a larger one
  std::int64_t receivedMs = 0;
  std::int64_t lastSeenMs = 0;  ///< when it came last
  std::int64_t repeats = 0;     ///< how often the same event id came again
  EventMetadata facts;
  std::optional<std::string> className;
  std::int64_t errors = 0;
  std::int64_t notes = 0;
  std::string line;
  std::int64_t bytes = 0;  ///< of the body

  bool isGood() const { return errors == 0; }
};

/// A request as it is kept.
struct StoredEvent : EventRow {
  ReceivedRequest request;
};

/// Which events to list. What is absent does not matter.
struct EventQuery {
  /// Events with a larger row number only, the oldest of them first in line for the limit. Absent:
  /// the newest are first in line.
  std::optional<std::int64_t> after;
  /// Events with a smaller row number only.
  std::optional<std::int64_t> before;
  std::optional<std::string> name;
  std::optional<std::string> className;
  std::optional<bool> good;
  /// A session of the application or of a video.
  std::optional<std::string> session;
  /// Stands somewhere in the body; A to Z are like a to z.
  std::optional<std::string> text;
  std::optional<std::int64_t> sinceMs;  ///< received then or later
  std::int64_t limit = 100;
};

/// Counts over what is kept.
struct EventSummary {
  /// Events without a name are counted under an absent one.
  struct Name {
    std::optional<std::string> name;
    std::int64_t events = 0;
    std::int64_t bad = 0;
    bool operator==(const Name&) const = default;
  };
  struct Minute {
    std::int64_t startMs = 0;
    std::int64_t good = 0;
    std::int64_t bad = 0;
  };

  std::int64_t requests = 0;  ///< events and their repeats
  std::int64_t events = 0;
  std::int64_t repeats = 0;
  std::int64_t good = 0;
  std::int64_t bad = 0;  ///< events with an error
  std::int64_t notes = 0;
  std::int64_t evicted = 0;  ///< events ever removed to make room
  std::optional<std::int64_t> firstMs;
  std::optional<std::int64_t> lastMs;
  std::vector<Name> byName;     ///< in order of name
  std::vector<Minute> minutes;  ///< the last sixty, the current one at the end
};

/// What is kept of one run of the application.
struct SessionSummary {
  struct Video {
    std::string id;
    std::int64_t firstMs = 0;
    std::int64_t lastMs = 0;
    std::int64_t events = 0;
  };

  std::string id;
  std::int64_t firstMs = 0;
  std::int64_t lastMs = 0;
  std::int64_t events = 0;
  std::int64_t bad = 0;
  std::vector<std::pair<std::string, std::int64_t>> names;
  std::vector<Video> videos;
};

}  // namespace jx
