// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXHandles.h"

#include <utility>

#include "jx/core/JXForkedChild.h"

namespace jx {

JXHandles& JXHandles::sharedInstance() {
  // 32 bits: a million live handles, and each slot can be reused four thousand times.
  static auto* const instance = new JXHandles(sizeof(void*) > 4 ? 32 : 20);
  return *instance;
}

void* JXHandles::add(JXHandleKind kind, std::shared_ptr<void> object) {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t slot = slots_.size();
  if (!free_.empty()) {
    slot = free_.front();
    free_.pop_front();
  } else if (slot >> slotBits_ == 0) {
    slots_.emplace_back();
  } else {
    return nullptr;
  }
  Slot& used = slots_[slot];
  used.object = std::move(object);
  used.kind = kind;
  ++used.uses;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a token that is never dereferenced
  return reinterpret_cast<void*>(used.uses << slotBits_ | slot);
}

jx_status JXHandles::findSlot(const void* handle, JXHandleKind kind, std::size_t& slot) const {
  if (handle == nullptr) return JX_ERROR_NULL_HANDLE;
  const auto number = reinterpret_cast<std::uintptr_t>(handle);
  const std::uintptr_t slotMask = (std::uintptr_t{1} << slotBits_) - 1;
  slot = number & slotMask;
  if (slot >= slots_.size() || slots_[slot].uses != number >> slotBits_ ||
      slots_[slot].object == nullptr) {
    return JX_ERROR_DEAD_HANDLE;
  }
  return slots_[slot].kind == kind ? JX_OK : JX_ERROR_WRONG_HANDLE;
}

jx_status JXHandles::find(const void* handle, JXHandleKind kind,
                          std::shared_ptr<void>& object) const {
  if (JXForkedChild::isCurrent()) return JX_ERROR_DEAD_HANDLE;
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t slot = 0;
  const jx_status status = findSlot(handle, kind, slot);
  if (status == JX_OK) object = slots_[slot].object;
  return status;
}

jx_status JXHandles::remove(void* handle, JXHandleKind kind, std::shared_ptr<void>& object) {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t slot = 0;
  const jx_status status = findSlot(handle, kind, slot);
  if (status != JX_OK) return status;
  // Before the slot is cleared, because push_back may throw.
  if (slots_[slot].uses < maxUses()) free_.push_back(slot);
  object = std::move(slots_[slot].object);
  slots_[slot].object = nullptr;
  return JX_OK;
}

std::size_t JXHandles::count() const {
  if (JXForkedChild::isCurrent()) return 0;
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t live = 0;
  for (const Slot& slot : slots_)
    live += slot.object != nullptr ? 1 : 0;
  return live;
}

}  // namespace jx
