// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXStringBuilder.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace jx {

JXStringBuilder::~JXStringBuilder() { ::operator delete(block_); }

void JXStringBuilder::reserve(std::size_t capacity) {
  constexpr std::size_t kMinCapacity = 64;
  capacity = std::max({capacity, 2 * capacity_, kMinCapacity});
  auto* const block =
      new (::operator new(sizeof(JXString::Shared) + capacity + 1)) JXString::Shared{{1}, 0};
  if (size_ != 0) std::memcpy(block->characters(), characters_, size_);
  ::operator delete(block_);
  block_ = block;
  characters_ = block->characters();
  capacity_ = capacity;
}

JXString JXStringBuilder::finish() {
  JXString string;
  if (size_ <= JXString::kInlineCapacity) {
    string.assign(characters_, size_);
    size_ = 0;
    return string;
  }
  characters_[size_] = '\0';
  block_->length = size_;
  string.adopt(block_);
  block_ = nullptr;
  characters_ = nullptr;
  size_ = 0;
  capacity_ = 0;
  return string;
}

JXString decimalString(std::uint64_t number) {
  char digits[20];
  char* at = std::end(digits);
  do {
    *--at = static_cast<char>('0' + number % 10);
    number /= 10;
  } while (number != 0);
  return std::string_view(at, static_cast<std::size_t>(std::end(digits) - at));
}

}  // namespace jx
