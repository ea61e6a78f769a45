// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

#include "jx/core/JXLogDeferral.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Locks the state behind an event: the predefined variables and the context blocks. The one mutex
/// of that state is recursive, because the operations on the state call each other. It is a leaf:
/// no code of the application runs while it is locked, and messages that are logged under it are
/// logged after it is released. The library locks by itself; applications do not need this class.
class JX_API JXSessionLock {
 public:
  JXSessionLock();
  ~JXSessionLock();
  JXSessionLock(const JXSessionLock&) = delete;
  JXSessionLock& operator=(const JXSessionLock&) = delete;

  /// A copy of the field, read under the lock.
  template <typename Value>
  static Value read(const Value& field) {
    const JXSessionLock lock;
    return field;
  }
  /// Replaces the field under the lock.
  template <typename Value>
  static void write(Value& field, Value value) {
    const JXSessionLock lock;
    // The previous value ends after the lock is released.
    std::swap(field, value);
  }

 private:
  JXLogDeferral deferral_;
};

}  // namespace jx
