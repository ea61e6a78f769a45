// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferMailbox.h"

namespace jx {

JXTransferOrders JXTransferMailbox::orders() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return orders_;
}

JXTransferOrders JXTransferMailbox::readOrders() {
  ordered_.store(false);
  const std::lock_guard<std::mutex> lock(mutex_);
  return orders_;
}

bool JXTransferMailbox::fallAsleep(bool ignoresAdditions) {
  ear_.store(ignoresAdditions ? Ear::ForOrders : Ear::ForAll);
  if (!ordered_.load() && (ignoresAdditions || !added_.load())) return true;
  ear_.store(Ear::Awake);
  return false;
}

}  // namespace jx
