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

/// The requests that the collector received, in a SQLite file. Thread-safe: one thread writes at a
/// time, and reading does not wait for writing. What add() reported as stored survives a crash of
/// the process.
class EventStore {
 public:
  /// Opens the file, or makes it; one of an earlier version, or judged by other rules, is brought
  /// up to date. `maxEvents`, at least 1, is how many are kept; the oldest go.
  static Result<std::unique_ptr<EventStore>> open(const std::filesystem::path& file,
                                                  std::int64_t maxEvents);

  /// Stores a request, or counts it as a repeat when its event id is already there. Gives the row
  /// number of the event.
  Result<std::int64_t> add(const ReceivedRequest& request);
  /// The same for who has judged it already.
  Result<std::int64_t> add(const ReceivedRequest& request, const ValidationResult& validation);
  /// Stores what an earlier collector kept, with its repeats, unless its event id is already there;
  /// then nothing changes. True when it was stored.
  Result<bool> restore(const StoredEvent& event);
  /// Removes everything. Gives how many events there were. Row numbers are not used again.
  Result<std::int64_t> removeAll();

  const EventReading& reading() const { return *reading_; }
  /// Where what happens here is told.
  EventBroadcaster& feed() { return feed_; }

 private:
  struct Repeat {
    std::int64_t id;
    std::int64_t repeats;
  };

  EventStore(SqliteDatabase writer, std::int64_t maxEvents);

  Done migrate();
  Done revalidate();
  Done prepare();
  Done countRows();
  Done begin();
  Done commit();
  void rollBack();
  /// Runs `write` in a transaction of its own, which counts only if all of it succeeds.
  template <typename Write>
  Done inTransaction(const Write& write);
  Result<std::optional<Repeat>> countRepeat(const ReceivedRequest& request,
                                            const EventMetadata& facts);
  Result<bool> isKept(const EventMetadata& facts);
  Result<std::int64_t> insert(const ReceivedRequest& request, const ValidationResult& validation,
                              std::int64_t lastSeenMs, std::int64_t repeats);
  Done makeRoom();

  std::int64_t maxEvents_;
  EventBroadcaster feed_;

  std::mutex writing_;
  SqliteDatabase writer_;
  SqliteStatement begin_, commit_, rollBack_, repeat_, find_, insert_, insertRequest_;
  SqliteStatement evict_, evictRequests_, countEvicted_;
  std::int64_t rows_ = 0;

  std::unique_ptr<EventReading> reading_;
};

}  // namespace jx
