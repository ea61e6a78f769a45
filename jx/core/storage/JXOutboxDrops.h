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

/// The requests that left a queue without an answer, until somebody is told of them. What a file
/// holds is read only then, so that dropping thousands costs the caller no reading: a segment lives
/// as long as a drop in it is remembered, even when its file is gone. Not synchronised.
class JXOutboxDrops {
 public:
  struct Drop {
    JXDropReason reason = JXDropReason::None;
    std::shared_ptr<JXOutboxSegment> segment;  ///< null: `body` holds the text
    std::uint32_t offset = 0;
    std::uint32_t bytes = 0;
    std::string body;
  };

  /// Nothing is remembered before this.
  void startRemembering() { remembers_ = true; }
  /// A request that no file holds.
  void note(JXDropReason reason, std::string_view body);
  /// A request in the index, with its body when it is in memory only.
  void note(JXDropReason reason, const JXOutboxEntry& entry, std::string_view bodyInMemory);
  /// Up to `most`, those first that were dropped first. May be read without the owner's lock.
  std::vector<Drop> take(std::size_t most);
  bool isEmpty() const { return drops_.empty(); }

 private:
  void push(Drop drop);

  bool remembers_ = false;
  std::deque<Drop> drops_;
  std::size_t bodyBytes_ = 0;
};

/// The body of a drop, empty when it cannot be read any more.
std::string bodyOf(JXOutboxDrops::Drop drop);

}  // namespace jx
