// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXOutboxBounds.h"
#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXOutboxSegment.h"

namespace jx {

/// A request that left the queue without a final response.
struct JXOutboxDrop {
  JXDropReason reason = JXDropReason::None;
  std::string body;                          ///< empty when it can no longer be read
  std::shared_ptr<JXOutboxSegment> segment;  ///< not null: the body is still in the file only
  std::uint32_t offset = 0;
  std::uint32_t bytes = 0;

  /// Reads a body that is in a file.
  void readBody();
};

/// Records the requests that left a queue without a final response until they are reported. Bodies
/// in files are read only then, so dropping thousands of requests reads nothing. A segment stays
/// open while a dropped request in it is recorded, even after its file was deleted. Not
/// synchronised.
class JXOutboxDrops {
 public:
  /// Starts recording; requests dropped earlier are not recorded.
  void startRecording() { isRecording_ = true; }
  /// Records a dropped request. `body` is used only if the request is not in a file; `entry` is
  /// null for a request that is not in the index.
  void record(JXDropReason reason, std::string_view body, const JXOutboxEntry* entry = nullptr);
  /// Removes and returns up to `limit` records in the order in which the requests were dropped.
  /// Their bodies may be read without the owner's lock.
  std::vector<JXOutboxDrop> take(std::size_t limit);

 private:
  bool isRecording_ = false;
  std::deque<JXOutboxDrop> drops_;
  std::size_t bodyBytes_ = 0;
};

}  // namespace jx
