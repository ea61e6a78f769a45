// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXStringBuilder.h"

#include <algorithm>
#include <new>

namespace jx {

JXStringBuilder::~JXStringBuilder() { ::operator delete(block_); }

void JXStringBuilder::reserve(std::size_t capacity) {
  constexpr std::size_t kSmallest = 64;
  capacity = std::max({capacity, 2 * capacity_, kSmallest});
  auto* const block =
      new (::operator new(sizeof(JXString::Shared) + capacity + 1)) JXString::Shared{{1}, 0};
  if (size_ != 0) std::memcpy(block->text(), text_, size_);
  ::operator delete(block_);
  block_ = block;
  text_ = block->text();
  capacity_ = capacity;
}

JXString JXStringBuilder::finish() {
  JXString text;
  if (size_ <= JXString::kInlineCapacity) {
    text.assign(text_, size_);
    size_ = 0;
    return text;
  }
  text_[size_] = '\0';
  block_->length = size_;
  text.adopt(block_);
  block_ = nullptr;
  text_ = nullptr;
  size_ = 0;
  capacity_ = 0;
  return text;
}

}  // namespace jx
