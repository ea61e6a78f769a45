// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXString.h"

#include <new>

namespace jx {

void JXString::assignShared(const char* string, std::size_t length) {
  Shared* block = new (::operator new(sizeof(Shared) + length + 1)) Shared{{1}, length};
  std::memcpy(block->characters(), string, length);
  block->characters()[length] = '\0';
  adopt(block);
}

void JXString::releaseShared() noexcept {
  Shared* block = shared();
  if (block->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    block->~Shared();
    ::operator delete(block);
  }
  tag_ = kNull;
}

std::ostream& operator<<(std::ostream& out, const JXString& string) {
  return string.isPresent() ? out << string.view() : out << "(absent)";
}

}  // namespace jx
