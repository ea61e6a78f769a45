// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "jx/platform/JXString.h"

namespace jx {

/// Builds a string and converts it to a JXString without another copy. One thread at a time. Throws
/// std::bad_alloc if memory is exhausted.
class JXStringBuilder {
 public:
  explicit JXStringBuilder(std::size_t capacity) { reserve(capacity); }
  ~JXStringBuilder();
  JXStringBuilder(const JXStringBuilder&) = delete;
  JXStringBuilder& operator=(const JXStringBuilder&) = delete;

  std::size_t size() const noexcept { return size_; }
  std::string_view view() const noexcept { return {characters_, size_}; }
  void append(char character) {
    if (size_ == capacity_) reserve(size_ + 1);
    characters_[size_++] = character;
  }
  void append(std::string_view string) {
    if (!string.empty()) std::memcpy(extend(string.size()), string.data(), string.size());
  }
  void append(std::size_t count, char character) { std::memset(extend(count), character, count); }
  /// Extends the string by `count` characters and returns their address; the caller writes them.
  char* extend(std::size_t count) {
    if (count > capacity_ - size_) reserve(size_ + count);
    char* const end = characters_ + size_;
    size_ += count;
    return end;
  }

  /// Returns the address after the last character, with room for `count` characters. Those that the
  /// caller writes belong to the string after `extendTo`.
  char* room(std::size_t count) {
    if (count > capacity_ - size_) reserve(size_ + count);
    return characters_ + size_;
  }
  /// Extends the string by the characters before `end`, which were written to the room.
  void extendTo(const char* end) noexcept { size_ = static_cast<std::size_t>(end - characters_); }

  /// Returns the string and empties the builder.
  JXString finish();

 private:
  void reserve(std::size_t capacity);

  JXString::Shared* block_ = nullptr;
  char* characters_ = nullptr;  ///< in the block; capacity for `capacity_` characters and a NUL
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

/// Returns the number as a decimal string.
JXString decimalString(std::uint64_t number);

}  // namespace jx
