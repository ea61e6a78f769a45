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

/// A request as received. Every part may contain any bytes.
struct ReceivedRequest {
  std::int64_t receivedMs = 0;  ///< milliseconds since the Unix epoch
  std::string method;
  std::string path;
  std::string query;  ///< part of the URL after the question mark, not decoded
  /// Names and values as sent. Names may repeat.
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
};

/// A row of the event list: everything except the request itself.
struct EventRow {
  std::int64_t id = 0;  ///< row ID; increases with every event
  std::int64_t receivedMs = 0;
  std::int64_t lastSeenMs = 0;  ///< when it was last received
  std::int64_t repeats = 0;     ///< number of further requests with the same event ID
  EventMetadata metadata;
  std::optional<std::string> className;
  std::int64_t errors = 0;
  std::int64_t notes = 0;
  std::string line;
  std::int64_t bytes = 0;  ///< size of the body

  bool isValid() const { return errors == 0; }
};

/// A stored request.
struct StoredEvent : EventRow {
  ReceivedRequest request;
};

/// Filters of an event list. A filter that is not set matches every event.
struct EventQuery {
  /// Only events with a larger row ID. If set, `limit` selects the oldest of them; otherwise it
  /// selects the newest events.
  std::optional<std::int64_t> after;
  /// Only events with a smaller row ID.
  std::optional<std::int64_t> before;
  std::optional<std::string> name;
  std::optional<std::string> className;
  std::optional<bool> good;
  /// Session ID or video session ID.
  std::optional<std::string> session;
  /// Substring of the body. ASCII letters match in either case.
  std::optional<std::string> text;
  std::optional<std::int64_t> sinceMs;  ///< only events received at this time or later
  std::int64_t limit = 100;
};

/// Counts over all stored events.
struct EventSummary {
  /// Events without a name are counted under nullopt.
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
  std::int64_t bad = 0;      ///< events with at least one error
  std::int64_t notes = 0;    ///< warnings of all events
  std::int64_t evicted = 0;  ///< events evicted to make room since the last reset
  std::optional<std::int64_t> firstMs;
  std::optional<std::int64_t> lastMs;
  std::vector<Name> byName;     ///< sorted by name
  std::vector<Minute> minutes;  ///< the last sixty minutes, the current one last
};

/// The stored events of one session of the application.
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
