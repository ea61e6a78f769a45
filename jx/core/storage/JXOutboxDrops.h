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

/// Records the requests that left a queue without a final response until they are reported. Bodies
/// in files are read only then, so dropping thousands of requests reads nothing. A segment stays
/// open while a dropped request in it is recorded, even after its file was deleted. Not
/// synchronised.
class JXOutboxDrops {
 public:
  struct Drop {
    JXDropReason reason = JXDropReason::None;
    std::shared_ptr<JXOutboxSegment> segment;  ///< null: the body is in `body`
    std::uint32_t offset = 0;
    std::uint32_t bytes = 0;
    std::string body;
  };

  /// Starts recording; requests dropped earlier are not recorded.
  void startRecording() { isRecording_ = true; }
  /// Records a dropped request that is in no file.
  void record(JXDropReason reason, std::string_view body);
  /// Records a dropped request of the index; `bodyInMemory` is used only if it is in no file.
  void record(JXDropReason reason, const JXOutboxEntry& entry, std::string_view bodyInMemory);
  /// Removes and returns up to `limit` records in the order in which the requests were dropped.
  /// Their bodies may be read without the owner's lock.
  std::vector<Drop> take(std::size_t limit);
  bool isEmpty() const { return drops_.empty(); }

 private:
  void push(Drop drop);

  bool isRecording_ = false;
  std::deque<Drop> drops_;
  std::size_t bodyBytes_ = 0;
};

/// Returns the body of a dropped request, empty when it can no longer be read.
std::string bodyOf(JXOutboxDrops::Drop drop);

}  // namespace jx
