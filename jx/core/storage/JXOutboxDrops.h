// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

#include "jx/core/JXOutboxBounds.h"
#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A request that left the queue without a final response.
struct JXOutboxDrop {
  JXDropReason reason = JXDropReason::None;
  JXString eventId;  ///< null when the request has none or can no longer be read
};

/// Records the requests that left a queue without a final response until they are reported. Bodies
/// in files are read only then, or when the file is deleted, so that dropping a request reads
/// nothing. When memory is exhausted, a limited number is recorded in memory that is reserved for
/// this. Not synchronised.
class JXOutboxDrops {
 public:
  /// Starts recording; requests dropped earlier are not recorded. Throws std::bad_alloc.
  void startRecording();
  /// Records a dropped request. `body` is used only if the request is not in a file; `entry` is
  /// null for a request that is not in the index.
  void record(JXDropReason reason, std::string_view body,
              const JXOutboxEntry* entry = nullptr) noexcept;
  /// Reads the requests of a segment that is about to be deleted. Throws std::bad_alloc; it can be
  /// called again then.
  void readAll(JXOutboxSegment& segment);
  /// Removes and returns up to `limit` records in the order in which the requests were dropped,
  /// those in reserved memory last. Fewer, or none, when memory is exhausted.
  std::vector<JXOutboxDrop> take(std::size_t limit) noexcept;
  bool isEmpty() const { return records_.empty() && reserved_.empty(); }

 private:
  struct Record {
    JXOutboxDrop drop;
    JXOutboxSegment* segment = nullptr;  ///< not null: the request is in its file only
    std::uint32_t offset = 0;
    std::uint32_t bytes = 0;
  };
  /// A record whose event ID is not allocated.
  struct Reserved {
    Record record;
    std::array<char, 40> eventId{};  ///< longer than a UUID
    std::size_t length = 0;
  };
  static Record recordOf(JXDropReason reason, const JXOutboxEntry* entry);
  static void read(Record& record);
  static void read(Reserved& reserved);
  void recordReserved(JXDropReason reason, std::string_view body,
                      const JXOutboxEntry* entry) noexcept;

  bool isRecording_ = false;
  std::deque<Record> records_;
  std::vector<Reserved> reserved_;  ///< never grows beyond its first capacity
};

}  // namespace jx
