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

/// A string that may be null. Null differs from the empty string, and passing either is safe.
///
/// A value type. Short strings are stored in the object; longer strings are immutable and shared by
/// all copies, so a copy never allocates. Any bytes are allowed, including NUL. Different objects
/// may be used on different threads; one object is not synchronised.
class JX_API JXString {
 public:
  /// Constructs a null string.
  JXString() noexcept : tag_(kNull) {}
  /// Constructs a null string, so that `setCoupon(nullptr)` compiles.
  JXString(std::nullptr_t) noexcept : JXString() {}
  /// Copies a NUL-terminated string; a null pointer constructs a null string.
  JXString(const char* string) : tag_(kNull) {
    if (string != nullptr) assign(string, std::strlen(string));
  }
  /// Copies a string, including NULs.
  JXString(const std::string& string) : tag_(kNull) { assign(string.data(), string.size()); }
  /// Copies a string, including NULs; never constructs a null string.
  JXString(std::string_view string) : tag_(kNull) { assign(string.data(), string.size()); }

  /// Shares a long string and copies a short one. Does not throw.
  JXString(const JXString& other) noexcept : tag_(other.tag_) {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    if (tag_ == kShared) shared()->references.fetch_add(1, std::memory_order_relaxed);
  }
  /// Moves the string; `other` is null afterwards.
  JXString(JXString&& other) noexcept : tag_(other.tag_) {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    other.tag_ = kNull;
  }
  /// Copies like the constructor.
  JXString& operator=(const JXString& other) noexcept {
    if (this == &other) return *this;
    // Before this string is released: both may share their characters.
    if (other.tag_ == kShared) other.shared()->references.fetch_add(1, std::memory_order_relaxed);
    release();
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    tag_ = other.tag_;
    return *this;
  }
  /// Moves like the constructor.
  JXString& operator=(JXString&& other) noexcept {
    if (this == &other) return *this;
    release();
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    tag_ = other.tag_;
    other.tag_ = kNull;
    return *this;
  }
  /// Frees a shared string with its last copy.
  ~JXString() { release(); }

  /// Returns true unless the string is null; true for the empty string.
  bool isPresent() const noexcept { return tag_ != kNull; }
  /// Returns true if the string is neither null nor empty, as required fields must be.
  bool testString() const noexcept { return size() != 0; }

  /// Returns the string; empty if null. Valid until this object is changed or destroyed.
  std::string_view view() const noexcept { return {data(), size()}; }
  /// Returns the NUL-terminated string; "" if null. Valid until this object is changed or
  /// destroyed.
  const char* c_str() const noexcept { return data(); }
  /// Returns a copy of the string; empty if null.
  std::string toStdString() const { return std::string(view()); }
  /// Returns the length in bytes; 0 if null.
  std::size_t size() const noexcept {
    if (tag_ == kShared) return shared()->length;
    return tag_ == kNull ? 0 : tag_;
  }

  /// Returns true if both are null, or if both are not null and have the same bytes.
  friend bool operator==(const JXString& a, const JXString& b) noexcept {
    return a.isPresent() == b.isPresent() && a.view() == b.view();
  }
  /// Negates ==.
  friend bool operator!=(const JXString& a, const JXString& b) noexcept { return !(a == b); }

 private:
  friend class JXStringBuilder;

  // The characters follow the header in the same allocation.
  struct Shared {
    std::atomic<std::uint32_t> references;
    std::size_t length;

    char* characters() { return reinterpret_cast<char*>(this + 1); }
  };
  // Long enough for UUIDs, the names of variables and notifications, and most names of products.
  static constexpr std::size_t kInlineCapacity = 38;
  static constexpr unsigned char kShared = 0xFE;
  static constexpr unsigned char kNull = 0xFF;

  const char* data() const noexcept {
    if (tag_ == kShared) return shared()->characters();
    return tag_ == kNull ? "" : bytes_;
  }
  Shared* shared() const noexcept {
    Shared* pointer;
    std::memcpy(&pointer, bytes_, sizeof pointer);
    return pointer;
  }
  // Requires that this object does not refer to a shared string.
  void assign(const char* string, std::size_t length) {
    if (length > kInlineCapacity) return assignShared(string, length);
    if (length != 0) std::memcpy(bytes_, string, length);
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
  void assignShared(const char* string, std::size_t length);
  void releaseShared() noexcept;

  // `bytes_` contains the string with its NUL, or the pointer to the shared string. `tag_` is
  // kShared, kNull or the length of the inline string (0 to kInlineCapacity).
  // Initialised, because the copies copy all of it, and compilers warn otherwise.
  alignas(void*) char bytes_[kInlineCapacity + 1] = {};
  unsigned char tag_;
};

/// Writes the string, or "(absent)" if it is null. For test messages and logs.
JX_API std::ostream& operator<<(std::ostream& out, const JXString& string);

}  // namespace jx

// Allows JXString as a key. Null has the same hash as the empty string.
/// @cond
template <>
struct std::hash<jx::JXString> {
  std::size_t operator()(const jx::JXString& string) const noexcept {
    return std::hash<std::string_view>{}(string.view());
  }
};
/// @endcond
