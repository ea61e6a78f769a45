// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <utility>

namespace jx::objc {

/// The C++ object of an Objective-C object, in its instance variable `void* _core[2]`: headers for
/// Objective-C cannot name C++ types. The memory of a new object is zero, which is a null pointer.
/// `dealloc` calls `endSlot`.
template <typename Core>
std::shared_ptr<Core>& slot(void** memory) {
  static_assert(sizeof(std::shared_ptr<Core>) == 2 * sizeof(void*), "the C++ object must fit");
  return *static_cast<std::shared_ptr<Core>*>(static_cast<void*>(memory));
}

template <typename Core>
void endSlot(void** memory) {
  using Pointer = std::shared_ptr<Core>;
  slot<Core>(memory).~Pointer();
}

}  // namespace jx::objc
