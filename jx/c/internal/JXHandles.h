// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "jx/c/jx_status.h"

namespace jx {

/// Type of the object that a handle of the C interface refers to.
enum class JXHandleKind : std::uint8_t { Object, ServerSide, Observer };

/// Table of all handles that were returned to C and not freed. A handle is an integer, cast to a
/// pointer, that combines the index of a slot with the use count of that slot. It is never
/// dereferenced. A slot whose use count is exhausted is not reused, so a freed handle is always
/// detected. Each call costs a lock and a look-up. Thread-safe; never destroyed.
class JXHandles {
 public:
  static JXHandles& sharedInstance();

  /// Returns a new handle that owns the object; null if no slot is left.
  void* add(JXHandleKind kind, std::shared_ptr<void> object);
  /// Finds the object of a handle. Returns another status than JX_OK if there is no object of this
  /// kind, and does not change `object`.
  jx_status find(const void* handle, JXHandleKind kind, std::shared_ptr<void>& object) const;
  /// Same as `find`, and invalidates the handle.
  jx_status remove(void* handle, JXHandleKind kind, std::shared_ptr<void>& object);
  std::size_t count() const;

  /// The lowest `slotBits` bits of a handle are the slot index, the others the use count.
  explicit JXHandles(unsigned slotBits) : slotBits_(slotBits) {}

 private:
  struct Slot {
    std::shared_ptr<void> object;
    std::uintptr_t uses = 0;
    JXHandleKind kind = JXHandleKind::Object;
  };

  jx_status findSlot(const void* handle, JXHandleKind kind, std::size_t& slot) const;
  std::uintptr_t maxUses() const { return UINTPTR_MAX >> slotBits_; }

  const unsigned slotBits_;
  mutable std::mutex mutex_;
  std::vector<Slot> slots_;
  std::deque<std::size_t> free_;
};

}  // namespace jx
