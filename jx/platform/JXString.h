// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
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
  JXString() noexcept : bytes_{}, tag_(kAbsent) {}
  /// The absent string, so that a host can write `setCoupon(nullptr)`.
  JXString(std::nullptr_t) noexcept : JXString() {}
  /// The text up to its NUL; a null pointer is the absent string.
  JXString(const char* text) : tag_(kAbsent) {
    if (text != nullptr) assign(text, std::strlen(text));
  }
  /// A copy of the text, NULs included.
  JXString(const std::string& text) : tag_(kAbsent) { assign(text.data(), text.size()); }
  /// A copy of the text, NULs included; never absent.
  JXString(std::string_view text) : tag_(kAbsent) { assign(text.data(), text.size()); }

  /// Shares a long text, copies a short one; never throws.
  JXString(const JXString& other) noexcept : tag_(other.tag_) {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    if (tag_ == kShared) shared()->references.fetch_add(1, std::memory_order_relaxed);
  }
  /// Takes the text; `other` is absent afterwards.
  JXString(JXString&& other) noexcept : tag_(other.tag_) {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    other.tag_ = kAbsent;
  }
  /// As the copy above.
  JXString& operator=(const JXString& other) noexcept {
    JXString copy(other);
    return *this = static_cast<JXString&&>(copy);
  }
  /// As the move above.
  JXString& operator=(JXString&& other) noexcept {
    if (this == &other) return *this;
    release();
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    tag_ = other.tag_;
    other.tag_ = kAbsent;
    return *this;
  }
  /// Ends the text with its last copy.
  ~JXString() { release(); }

  /// True when there is a text, the empty one included.
  bool isPresent() const noexcept { return tag_ != kAbsent; }
  /// True when there is a text of at least one character: the test that required texts must pass.
  bool testString() const noexcept { return size() != 0; }

  /// The text; empty when absent. Valid until this object changes or ends.
  std::string_view view() const noexcept { return {data(), size()}; }
  /// The text with a NUL behind it; "" when absent. Valid until this object changes or ends.
  const char* c_str() const noexcept { return data(); }
  /// A copy of the text; empty when absent.
  std::string toStdString() const { return std::string(view()); }
  /// Length in bytes; 0 when absent.
  std::size_t size() const noexcept {
    if (tag_ == kShared) return shared()->length;
    return tag_ == kAbsent ? 0 : tag_;
  }

  /// Equal when both are absent, or both present with the same bytes.
  friend bool operator==(const JXString& a, const JXString& b) noexcept {
    return a.isPresent() == b.isPresent() && a.view() == b.view();
  }
  /// The opposite of ==.
  friend bool operator!=(const JXString& a, const JXString& b) noexcept { return !(a == b); }

 private:
  friend class JXStringBuilder;

  // The text follows the header in the same allocation.
  struct Shared {
    std::atomic<std::uint32_t> references;
    std::size_t length;

    char* text() { return reinterpret_cast<char*>(this + 1); }
  };
  // What fits covers the names of the variables and of the notifications, so that looking one up
  // allocates nothing.
  static constexpr std::size_t kInlineCapacity = 30;
  static constexpr unsigned char kShared = 0xFE;
  static constexpr unsigned char kAbsent = 0xFF;

  const char* data() const noexcept {
    if (tag_ == kShared) return shared()->text();
    return tag_ == kAbsent ? "" : bytes_;
  }
  Shared* shared() const noexcept {
    Shared* pointer;
    std::memcpy(&pointer, bytes_, sizeof pointer);
    return pointer;
  }
  // Of an object that holds no shared text.
  void assign(const char* text, std::size_t length) {
    if (length > kInlineCapacity) return assignShared(text, length);
    if (length != 0) std::memcpy(bytes_, text, length);
    bytes_[length] = '\0';
    tag_ = static_cast<unsigned char>(length);
  }
  void adopt(Shared* block) noexcept {
    std::memcpy(bytes_, &block, sizeof block);
    tag_ = kShared;
  }
  void release() noexcept {
    if (tag_ == kShared) releaseShared();
  }
  void assignShared(const char* text, std::size_t length);
  void releaseShared() noexcept;

  // `bytes_` holds the text with its NUL, or the pointer to the shared text; `tag_` tells which
  // (0 to kInlineCapacity: the length of the text held in place).
  alignas(void*) char bytes_[kInlineCapacity + 1];
  unsigned char tag_;
};

/// For test messages and logs: the text, or "(absent)".
JX_API std::ostream& operator<<(std::ostream& out, const JXString& text);

}  // namespace jx

// So that a JXString can be a key. An absent one hashes as the empty one.
/// @cond
template <>
struct std::hash<jx::JXString> {
  std::size_t operator()(const jx::JXString& text) const noexcept {
    return std::hash<std::string_view>{}(text.view());
  }
};
/// @endcond
