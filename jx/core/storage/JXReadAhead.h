// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "jx/core/storage/JXOutboxSegment.h"

namespace jx {

/// Reads the requests of a segment in runs: one system call for those that follow each other in the
/// file. The part of a segment that contains requests is never written again, so what was read
/// stays valid until the segment is destroyed. Not synchronised.
class JXReadAhead {
 public:
  static constexpr std::size_t kRun = 32 * 1024;

  /// Returns the payload of a request, valid until the next call; empty if it cannot be read in a
  /// run, for example because it is damaged or memory is exhausted: read it alone then.
  std::string_view payload(JXOutboxSegment& segment, std::uint32_t offset,
                           std::uint32_t bytes) noexcept;
  /// Call this before a segment is destroyed.
  void forget(const JXOutboxSegment& segment) noexcept;
  /// Releases the memory.
  void clear() noexcept;

 private:
  const JXOutboxSegment* segment_ = nullptr;
  std::uint64_t offset_ = 0;  ///< of the bytes in the segment
  std::size_t size_ = 0;
  std::unique_ptr<char[]> bytes_;
};

}  // namespace jx
