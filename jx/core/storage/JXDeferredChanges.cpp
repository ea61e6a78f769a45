// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDeferredChanges.h"

#include "jx/core/JXForkedChild.h"
#include "jx/core/storage/JXDefaultsFile.h"

namespace jx {
namespace {

thread_local JXDeferredChanges* innermostChanges = nullptr;

}  // namespace

JXDeferredChanges::JXDeferredChanges() noexcept : outer_(innermostChanges) {
  innermostChanges = this;
}

JXDeferredChanges::~JXDeferredChanges() {
  innermostChanges = outer_;
  // The values may be locked by a thread of the parent.
  if (file_ == nullptr || JXForkedChild::isCurrent()) return;
  try {
    file_->saveChanges();
  } catch (...) {
    // Out of memory. The file keeps the values and writes them at its next maintenance.
  }
}

JXDeferredChanges* JXDeferredChanges::current() noexcept { return innermostChanges; }

void JXDeferredChanges::stored() noexcept {
  if (file_ != nullptr) file_->changesStored(encoded_);
  file_ = nullptr;
}

void JXDeferredChanges::encode(std::string& payload) noexcept {
  payload.clear();
  if (file_ == nullptr) return;
  try {
    encoded_ = file_->encodeChanges(payload);
  } catch (...) {
    // Out of memory: the request is stored without them.
    payload.clear();
  }
}

}  // namespace jx
