// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/SqliteDatabase.h"
#include "tools/jx/collector/TextSearch.h"

namespace jx {

/// Reads the event store. Thread-safe: up to four readers run at a time, concurrently with the
/// writer, so that a long search does not block other requests.
class EventReading {
 public:
  /// Opens the read connections to an existing database.
  static Result<std::unique_ptr<EventReading>> open(const std::filesystem::path& file);

  /// Returns events in order of arrival. Stops early when their bodies exceed about 32 MiB in
  /// total; callers continue after the last returned event. Returns at least one event if any
  /// matches.
  Result<std::vector<StoredEvent>> list(const EventQuery& query) const;
  /// Same, without the requests and without the size limit.
  Result<std::vector<EventRow>> rows(const EventQuery& query) const;
  /// Returns nullopt when the row does not exist.
  Result<std::optional<StoredEvent>> find(std::int64_t id) const;
  /// Returns the row ID of the previous event with the same name: of the same session if there is
  /// one, otherwise of any session. Returns nullopt when there is none.
  Result<std::optional<std::int64_t>> previousOf(const EventRow& row) const;
  /// Counts the stored events. `nowMs` is the current time, which selects the last sixty minutes.
  Result<EventSummary> summary(std::int64_t nowMs) const;
  /// Returns at most `limit` sessions, the most recent first.
  Result<std::vector<SessionSummary>> sessions(std::int64_t limit) const;

 private:
  struct Connection {
    TextSearch search;
    SqliteDatabase database;
  };
  class Lease;

  EventReading() = default;

  mutable std::mutex mutex_;
  mutable std::condition_variable isFree_;
  mutable std::vector<Connection*> free_;
  std::vector<std::unique_ptr<Connection>> connections_;
};

}  // namespace jx
