// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/jx/Outcome.h"
#include "tools/jx/collector/EventFacts.h"
#include "tools/jx/collector/SqliteDatabase.h"

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

/// A request as it is kept.
struct StoredEvent {
  std::int64_t id = 0;  ///< row number; a later arrival has a larger one
  ReceivedRequest request;
  EventFacts facts;
  std::int64_t repeats = 0;     ///< how often the same event id came again
  std::int64_t lastSeenMs = 0;  ///< when it came last
};

/// Which events to list.
struct EventQuery {
  /// Events with a larger row number only, the oldest of them first in line for the limit. Absent:
  /// the newest are first in line.
  std::optional<std::int64_t> after;
  std::optional<std::string> name;
  std::int64_t limit = 100;
};

/// Counts over what is kept.
struct EventSummary {
  std::int64_t requests = 0;  ///< events and their repeats
  std::int64_t events = 0;
  std::int64_t repeats = 0;
  std::int64_t bad = 0;      ///< events whose body is no JSON object
  std::int64_t evicted = 0;  ///< events ever removed to make room
  std::optional<std::int64_t> firstMs;
  std::optional<std::int64_t> lastMs;
  /// Events without a name are counted under an absent one. In order of name.
  std::vector<std::pair<std::optional<std::string>, std::int64_t>> byName;
};

/// The requests that the collector received, in a SQLite file. Thread-safe: one thread writes at a
/// time, and reading does not wait for writing. What add() reported as stored survives a crash of
/// the process.
class EventStore {
 public:
  /// Opens the file, or makes it. `maxEvents`, at least 1, is how many are kept; the oldest go.
  static Outcome<std::unique_ptr<EventStore>> open(const std::filesystem::path& file,
                                                   std::int64_t maxEvents);

  /// Stores a request, or counts it as a repeat when its event id is already there. Gives the row
  /// number of the event.
  Outcome<std::int64_t> add(const ReceivedRequest& request);

  /// In order of arrival. Stops early when the events together exceed some 32 MiB, so that a
  /// caller goes on after the last one given; at least one event is given when any matches.
  Outcome<std::vector<StoredEvent>> list(const EventQuery& query) const;
  /// Absent when there is no such row.
  Outcome<std::optional<StoredEvent>> find(std::int64_t id) const;
  Outcome<EventSummary> summary() const;

 private:
  EventStore(SqliteDatabase writer, SqliteDatabase reader, std::int64_t maxEvents);

  Done migrate();
  Done prepare();
  Done countRows();
  Done begin();
  Done commit();
  void rollBack();
  Outcome<std::int64_t> write(const ReceivedRequest& request, const EventFacts& facts);
  Outcome<std::optional<std::int64_t>> countRepeat(const ReceivedRequest& request,
                                                   const EventFacts& facts);
  Outcome<std::int64_t> insert(const ReceivedRequest& request, const EventFacts& facts);
  Done evict(std::int64_t count);

  std::int64_t maxEvents_;

  std::mutex writing_;
  SqliteDatabase writer_;
  SqliteStatement begin_, commit_, rollBack_, repeat_, insert_, evict_, countEvicted_;
  std::int64_t rows_ = 0;

  mutable std::mutex reading_;
  mutable SqliteDatabase reader_;
};

}  // namespace jx
