// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXStoredData.h"

#include <exception>

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"
#include "jx/session/JXSession.h"

namespace jx {

JXErasure JXStoredData::eraseAll() {
  JXErasure erasure;
  try {
    if (JXForkedChild::ignores("JXStoredData::eraseAll()")) {
      erasure.left.emplace_back("a forked child process cannot erase the data of its parent");
      return erasure;
    }
    erasure.left = JXCoreServices::eraseStoredData();
    if (JXCoreServices::hasStarted()) JXSession::sharedInstance().forgetErased();
  } catch (const std::exception& error) {
    erasure.left.emplace_back(error.what());
  } catch (...) {
    erasure.left.emplace_back("unknown error");
  }
  erasure.isComplete = erasure.left.empty();
  return erasure;
}

}  // namespace jx
