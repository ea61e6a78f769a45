// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include "jx/platform/JXString.h"

namespace jx {

/// Grows a text that becomes a JXString in the end without being copied once more. One thread at a
/// time. Throws std::bad_alloc when memory runs out.
class JXStringBuilder {
 public:
  explicit JXStringBuilder(std::size_t capacity) { reserve(capacity); }
  ~JXStringBuilder();
  JXStringBuilder(const JXStringBuilder&) = delete;
  JXStringBuilder& operator=(const JXStringBuilder&) = delete;

  std::size_t size() const noexcept { return size_; }
  std::string_view view() const noexcept { return {text_, size_}; }
  void append(char character) {
    if (size_ == capacity_) reserve(size_ + 1);
    text_[size_++] = character;
  }
  void append(std::string_view text) {
    if (!text.empty()) std::memcpy(extend(text.size()), text.data(), text.size());
  }
  void append(std::size_t count, char character) { std::memset(extend(count), character, count); }
  /// Makes the text longer by `count` characters, which the caller writes at the place returned.
  char* extend(std::size_t count) {
    if (count > capacity_ - size_) reserve(size_ + count);
    char* const place = text_ + size_;
    size_ += count;
    return place;
  }

  /// Takes the last `count` characters back.
  void shrink(std::size_t count) noexcept { size_ -= count; }

  /// The text; the builder is empty then.
  JXString finish();

 private:
  void reserve(std::size_t capacity);

  JXString::Shared* block_ = nullptr;
  char* text_ = nullptr;  ///< in the block, with room for `capacity_` characters and a NUL
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace jx
