// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXHandles.h"

#include <utility>

namespace jx {

JXHandles& JXHandles::sharedInstance() {
  // A million living handles, each place given four thousand times, fit into 32 bits.
  static auto* const instance = new JXHandles(sizeof(void*) > 4 ? 32 : 20);
  return *instance;
}

void* JXHandles::add(JXHandleKind kind, std::shared_ptr<void> object) {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t place = places_.size();
  if (!free_.empty()) {
    place = free_.front();
    free_.pop_front();
  } else if (place >> placeBits_ == 0) {
    places_.emplace_back();
  } else {
    return nullptr;
  }
  Place& taken = places_[place];
  taken.object = std::move(object);
  taken.kind = kind;
  ++taken.uses;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a token that is never followed
  return reinterpret_cast<void*>(taken.uses << placeBits_ | place);
}

jx_status JXHandles::placeOf(const void* handle, JXHandleKind kind, std::size_t& place) const {
  if (handle == nullptr) return JX_ERROR_NULL_HANDLE;
  const auto number = reinterpret_cast<std::uintptr_t>(handle);
  const std::uintptr_t places = (std::uintptr_t{1} << placeBits_) - 1;
  place = number & places;
  if (place >= places_.size() || places_[place].uses != number >> placeBits_ ||
      places_[place].object == nullptr) {
    return JX_ERROR_DEAD_HANDLE;
  }
  return places_[place].kind == kind ? JX_OK : JX_ERROR_WRONG_HANDLE;
}

jx_status JXHandles::find(const void* handle, JXHandleKind kind,
                          std::shared_ptr<void>& object) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t place = 0;
  const jx_status status = placeOf(handle, kind, place);
  if (status == JX_OK) object = places_[place].object;
  return status;
}

jx_status JXHandles::remove(void* handle, JXHandleKind kind, std::shared_ptr<void>& object) {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t place = 0;
  const jx_status status = placeOf(handle, kind, place);
  if (status != JX_OK) return status;
  // Before the place is emptied, because it may throw.
  if (places_[place].uses < mostUses()) free_.push_back(place);
  object = std::move(places_[place].object);
  places_[place].object = nullptr;
  return JX_OK;
}

std::size_t JXHandles::count() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::size_t living = 0;
  for (const Place& place : places_)
    living += place.object != nullptr ? 1 : 0;
  return living;
}

}  // namespace jx
