// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

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
/// nothing. Not synchronised.
class JXOutboxDrops {
 public:
  /// Starts recording; requests dropped earlier are not recorded.
  void startRecording() { isRecording_ = true; }
  /// Records a dropped request. `body` is used only if the request is not in a file; `entry` is
  /// null for a request that is not in the index.
  void record(JXDropReason reason, std::string_view body, const JXOutboxEntry* entry = nullptr);
  /// Reads the requests of a segment that is about to be deleted.
  void readAll(JXOutboxSegment& segment);
  /// Removes and returns up to `limit` records in the order in which the requests were dropped.
  std::vector<JXOutboxDrop> take(std::size_t limit);

 private:
  struct Record {
    JXOutboxDrop drop;
    JXOutboxSegment* segment = nullptr;  ///< not null: the request is in its file only
    std::uint32_t offset = 0;
    std::uint32_t bytes = 0;
  };
  static void read(Record& record);

  bool isRecording_ = false;
  std::deque<Record> records_;
};

}  // namespace jx
