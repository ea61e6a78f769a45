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

/// Reads what the store keeps. Thread-safe: a few readers work at a time, beside the writer, so
/// that a long search holds up nobody.
class EventReading {
 public:
  static Result<std::unique_ptr<EventReading>> open(const std::filesystem::path& file);

  /// In order of arrival. Stops early when the events together exceed some 32 MiB, so that a
  /// caller goes on after the last one given; at least one event is given when any matches.
  Result<std::vector<StoredEvent>> list(const EventQuery& query) const;
  /// The same without the requests, and without that bound.
  Result<std::vector<EventRow>> rows(const EventQuery& query) const;
  /// Absent when there is no such row.
  Result<std::optional<StoredEvent>> find(std::int64_t id) const;
  /// The row number of the event of the same name before this one: of its session if there is one,
  /// else of any.
  Result<std::optional<std::int64_t>> previousOf(const EventRow& row) const;
  /// `nowMs` tells which sixty minutes are the last.
  Result<EventSummary> summary(std::int64_t nowMs) const;
  /// The newest first.
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
