// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXLifecycle.h"

#include "jx/core/JXStartGuard.h"

namespace jx {
namespace {

std::atomic<bool> alreadyInitialised{false};

}  // namespace

JXLifecycle* JXLifecycle::init() {
  if (alreadyInitialised.exchange(true)) {
    neverReturn("JXLifecycle: init was called a second time; the call never returns");
  }
  return baseInit() ? this : nullptr;
}

void JXLifecycle::refreshContent() { readVariables(); }

JXJsonObject JXLifecycle::getJsonObject() {
  const JXSessionLock lock;
  refreshContent();
  return newJsonObject();
}

}  // namespace jx
