// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "jx/c/jx_status.h"

namespace jx {

/// What a handle of the C interface stands for.
enum class JXHandleKind : std::uint8_t { Object, ServerSide, Observer };

/// Every handle that was given to C and not freed. A handle is a number made of a place and of how
/// often the place was given, dressed as a pointer, and is never followed; a place whose count is
/// used up is not given again. So a freed handle is always told from the living ones, at the price
/// of a lock and a look-up in each call. Thread-safe; never destroyed.
class JXHandles {
 public:
  static JXHandles& sharedInstance();

  /// A handle that keeps the object; null when there is no place left.
  void* add(JXHandleKind kind, std::shared_ptr<void> object);
  /// The object that the handle keeps. A status other than JX_OK when there is none of this kind;
  /// `object` is then left alone.
  jx_status find(const void* handle, JXHandleKind kind, std::shared_ptr<void>& object) const;
  /// The same, and the handle is dead from now on.
  jx_status remove(void* handle, JXHandleKind kind, std::shared_ptr<void>& object);
  std::size_t count() const;

  /// `placeBits` of a handle's number are the place, the rest is its count.
  explicit JXHandles(unsigned placeBits) : placeBits_(placeBits) {}

 private:
  struct Place {
    std::shared_ptr<void> object;
    std::uintptr_t uses = 0;
    JXHandleKind kind = JXHandleKind::Object;
  };

  jx_status placeOf(const void* handle, JXHandleKind kind, std::size_t& place) const;
  std::uintptr_t mostUses() const { return UINTPTR_MAX >> placeBits_; }

  const unsigned placeBits_;
  mutable std::mutex mutex_;
  std::vector<Place> places_;
  std::deque<std::size_t> free_;
};

}  // namespace jx
