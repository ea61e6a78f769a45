// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXSessionLock.h"

#include <mutex>

namespace jx {
namespace {

// Never destroyed: events may be executed while the process ends.
std::recursive_mutex& mutex() {
  static auto* const instance = new std::recursive_mutex();
  return *instance;
}

}  // namespace

JXSessionLock::JXSessionLock() { mutex().lock(); }

JXSessionLock::~JXSessionLock() { mutex().unlock(); }

}  // namespace jx
