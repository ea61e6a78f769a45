// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXString.h"

#include <atomic>
#include <cstring>
#include <new>

namespace jx {

// The text follows the header in the same allocation.
struct JXString::Shared {
  std::atomic<std::uint32_t> references;
  std::size_t length;

  char* text() { return reinterpret_cast<char*>(this + 1); }
};

JXString::JXString() noexcept : bytes_{}, tag_(kAbsent) {}

JXString::JXString(std::nullptr_t) noexcept : JXString() {}

JXString::JXString(const char* text) : JXString() {
  if (text != nullptr) assign(text, std::strlen(text));
}

JXString::JXString(const std::string& text) : JXString() { assign(text.data(), text.size()); }

JXString::JXString(std::string_view text) : JXString() { assign(text.data(), text.size()); }

JXString::JXString(const JXString& other) noexcept : tag_(other.tag_) {
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  if (tag_ == kShared) shared()->references.fetch_add(1, std::memory_order_relaxed);
}

JXString::JXString(JXString&& other) noexcept : tag_(other.tag_) {
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  other.tag_ = kAbsent;
}

JXString& JXString::operator=(const JXString& other) noexcept {
  if (this != &other) {
    JXString copy(other);
    *this = std::move(copy);
  }
  return *this;
}

JXString& JXString::operator=(JXString&& other) noexcept {
  if (this != &other) {
    release();
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    tag_ = other.tag_;
    other.tag_ = kAbsent;
  }
  return *this;
}

JXString::~JXString() { release(); }

std::size_t JXString::size() const noexcept {
  if (tag_ == kShared) return shared()->length;
  return tag_ == kAbsent ? 0 : tag_;
}

const char* JXString::data() const noexcept {
  if (tag_ == kShared) return shared()->text();
  return tag_ == kAbsent ? "" : bytes_;
}

JXString::Shared* JXString::shared() const noexcept {
  Shared* pointer;
  std::memcpy(&pointer, bytes_, sizeof pointer);
  return pointer;
}

void JXString::assign(const char* text, std::size_t length) {
  if (length <= kInlineCapacity) {
    if (length != 0) std::memcpy(bytes_, text, length);
    bytes_[length] = '\0';
    tag_ = static_cast<unsigned char>(length);
    return;
  }
  Shared* block = new (::operator new(sizeof(Shared) + length + 1)) Shared{{1}, length};
  std::memcpy(block->text(), text, length);
  block->text()[length] = '\0';
  std::memcpy(bytes_, &block, sizeof block);
  tag_ = kShared;
}

void JXString::release() noexcept {
  if (tag_ != kShared) return;
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
