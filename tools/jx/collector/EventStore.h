// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventBroadcaster.h"
#include "tools/jx/collector/EventReading.h"
#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/SqliteDatabase.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx {

/// Stores the received requests in a SQLite file. Thread-safe: one thread writes at a time; readers
/// do not wait for writers. An event that add() reported as stored survives a process crash.
class EventStore {
 public:
  static constexpr std::int64_t kDefaultMaxBytes = std::int64_t{1024} * 1024 * 1024;

  /// Opens or creates the file. Migrates older schemas and revalidates the events when the rules
  /// have changed. `maxEvents` (at least 1) limits the number of events, `maxBytes` the used part
  /// of the file; the oldest events are evicted. The newest event is stored whatever its size.
  static Result<std::unique_ptr<EventStore>> open(const std::filesystem::path& file,
                                                  std::int64_t maxEvents,
                                                  std::int64_t maxBytes = kDefaultMaxBytes);

  /// Stores a request, or counts it as a repeat when its event ID is already stored. Returns the
  /// row ID of the event.
  Result<std::int64_t> add(const ReceivedRequest& request);
  /// Same, for a request that is already validated.
  Result<std::int64_t> add(const ReceivedRequest& request, const ValidationResult& validation);
  /// Stores an exported event with its repeats and times. Does nothing when its event ID is already
  /// stored. Returns true when it was added.
  Result<bool> restore(const StoredEvent& event);
  /// Removes all events and returns their number. Row IDs are not reused.
  Result<std::int64_t> removeAll();

  const EventReading& reading() const { return *reading_; }
  /// Publishes the changes of this store.
  EventBroadcaster& broadcaster() { return broadcaster_; }

 private:
  struct Repeat {
    std::int64_t id;
    std::int64_t repeats;
  };

  EventStore(SqliteDatabase writer, std::int64_t maxEvents, std::int64_t maxBytes);

  Done migrate();
  Done revalidate();
  Done prepare();
  Done countRows();
  Done begin();
  Done commit();
  void rollBack();
  /// Runs `write` in a transaction. Rolls back when `write` or the commit fails.
  template <typename Write>
  Done inTransaction(const Write& write);
  Result<std::optional<Repeat>> countRepeat(const ReceivedRequest& request,
                                            const EventMetadata& metadata);
  Result<bool> isKept(const EventMetadata& metadata);
  Result<std::int64_t> insert(const ReceivedRequest& request, const ValidationResult& validation,
                              std::int64_t lastSeenMs, std::int64_t repeats);
  /// Evicts the oldest events until both limits are met.
  Done makeRoom();
  Done evictOldest(std::int64_t count);
  /// Returns the size of the file without its free pages, including the current transaction.
  Result<std::int64_t> usedBytes();

  const std::int64_t maxEvents_;
  const std::int64_t maxBytes_;
  EventBroadcaster broadcaster_;

  std::mutex writing_;
  SqliteDatabase writer_;
  SqliteStatement begin_, commit_, rollBack_, repeat_, find_, insert_, insertRequest_;
  SqliteStatement evict_, evictRequests_, countEvicted_, pages_, freePages_;
  std::int64_t pageBytes_ = 0;
  std::int64_t rows_ = 0;

  std::unique_ptr<EventReading> reading_;
};

}  // namespace jx
