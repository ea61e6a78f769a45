// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace jx::test {

/// Which allocations fail after those that succeed.
enum class Failing { OnlyOne, AllLater };

/// Makes allocations of this thread fail while it exists: `operator new` throws std::bad_alloc
/// after `succeeding` successful calls. This program replaces the operator.
class FailingMemory {
 public:
  FailingMemory(std::size_t succeeding, Failing failing) noexcept;
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  /// Returns whether an allocation has failed.
  bool hasFailed() const noexcept;
};

}  // namespace jx::test
