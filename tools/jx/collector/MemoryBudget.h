// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>

namespace jx {

/// A limit on the bytes that all clients of a server hold in memory. The first bytes of each share
/// are not counted, so that clients that hold large ones cannot lock out the others. Thread-safe.
class MemoryBudget {
 public:
  MemoryBudget(std::size_t limit, std::size_t uncounted) : limit_(limit), uncounted_(uncounted) {}

  /// The bytes of one connection. Released by the destructor. Used by one thread.
  class Share {
   public:
    explicit Share(MemoryBudget& budget) : budget_(budget) {}
    ~Share() { release(); }
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;

    /// Adds `bytes`. Returns false, without adding them, when the limit would be exceeded. A share
    /// always fits while no other one holds bytes.
    bool grow(std::size_t bytes) {
      const std::size_t free = std::min(bytes, budget_.uncounted_ - free_);
      free_ += free;
      bytes -= free;
      if (bytes == 0) return true;
      const std::size_t before = budget_.used_.fetch_add(bytes);
      const bool isAlone = before == held_;
      if (before + bytes <= budget_.limit_ || isAlone) {
        held_ += bytes;
        return true;
      }
      budget_.used_.fetch_sub(bytes);
      return false;
    }
    void release() {
      budget_.used_.fetch_sub(std::exchange(held_, 0));
      free_ = 0;
    }

   private:
    MemoryBudget& budget_;
    std::size_t held_ = 0;
    std::size_t free_ = 0;  // bytes that are not counted
  };

 private:
  const std::size_t limit_;
  const std::size_t uncounted_;
  std::atomic<std::size_t> used_{0};
};

}  // namespace jx
