// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "jx/platform/JXApi.h"

namespace jx {

/// A string that may be absent: absent differs from the empty string, and passing either is safe.
///
/// A value type with no identity. Short texts live in the object itself; a longer one is an
/// immutable text shared by all copies, so a copy never allocates. Any bytes are allowed, a NUL
/// included. Distinct objects may be used on distinct threads; one object is not synchronised.
class JX_API JXString {
 public:
  /// The absent string.
  JXString() noexcept;
  /// The absent string, so that a host can write `setCoupon(nullptr)`.
  JXString(std::nullptr_t) noexcept;
  /// The text up to its NUL; a null pointer is the absent string.
  JXString(const char* text);
  JXString(const std::string& text);
  JXString(std::string_view text);

  JXString(const JXString& other) noexcept;
  JXString(JXString&& other) noexcept;
  JXString& operator=(const JXString& other) noexcept;
  JXString& operator=(JXString&& other) noexcept;
  ~JXString();

  /// True when there is a text, the empty one included.
  bool isPresent() const noexcept { return tag_ != kAbsent; }
  /// True when there is a text of at least one character: the test that required texts must pass.
  bool testString() const noexcept { return size() != 0; }

  /// The text; empty when absent. Valid until this object changes or ends.
  std::string_view view() const noexcept { return {data(), size()}; }
  /// The text with a NUL behind it; "" when absent. Valid until this object changes or ends.
  const char* c_str() const noexcept { return data(); }
  std::string toStdString() const { return std::string(view()); }
  /// Length in bytes; 0 when absent.
  std::size_t size() const noexcept;

  /// Equal when both are absent, or both present with the same bytes.
  friend bool operator==(const JXString& a, const JXString& b) noexcept {
    return a.isPresent() == b.isPresent() && a.view() == b.view();
  }
  friend bool operator!=(const JXString& a, const JXString& b) noexcept { return !(a == b); }

 private:
  struct Shared;
  static constexpr std::size_t kInlineCapacity = 22;
  static constexpr unsigned char kShared = 0xFE;
  static constexpr unsigned char kAbsent = 0xFF;

  const char* data() const noexcept;
  Shared* shared() const noexcept;
  void assign(const char* text, std::size_t length);
  void release() noexcept;

  // `bytes_` holds the text with its NUL, or the pointer to the shared text; `tag_` tells which
  // (0 to kInlineCapacity: the length of the text held in place).
  alignas(void*) char bytes_[kInlineCapacity + 1];
  unsigned char tag_;
};

/// For test messages and logs: the text, or "(absent)".
JX_API std::ostream& operator<<(std::ostream& out, const JXString& text);

}  // namespace jx

template <>
struct std::hash<jx::JXString> {
  std::size_t operator()(const jx::JXString& text) const noexcept {
    return std::hash<std::string_view>{}(text.view());
  }
};
