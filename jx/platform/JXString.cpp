// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXString.h"

#include <new>

namespace jx {

void JXString::assignShared(const char* text, std::size_t length) {
  Shared* block = new (::operator new(sizeof(Shared) + length + 1)) Shared{{1}, length};
  std::memcpy(block->text(), text, length);
  block->text()[length] = '\0';
  adopt(block);
}

void JXString::releaseShared() noexcept {
  Shared* block = shared();
  if (block->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    block->~Shared();
    ::operator delete(block);
  }
  tag_ = kAbsent;
}

std::ostream& operator<<(std::ostream& out, const JXString& text) {
  return text.isPresent() ? out << text.view() : out << "(absent)";
}

}  // namespace jx
