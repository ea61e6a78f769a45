// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXStartGuard.h"

#include <chrono>
#include <string>

#include "jx/core/JXLogger.h"

namespace jx {

bool tryBeginInit(std::atomic<int>& state, const char* className) {
  // Read once: a thread that calls while an initialisation runs blocks forever, even after it ends.
  int found = state.load();
  while (found == kJXInitNever || found == kJXInitAgain) {
    if (state.compare_exchange_weak(found, kJXInitRunning)) return true;
  }
  if (found == kJXInitRunning) {
    neverReturn((std::string(className) +
                 ": init was called while init was running; the call never returns")
                    .c_str());
  }
  return false;
}

void neverReturn(const char* message) {
  JXLogger::sharedInstance().logAtOnce(message, 2);
  for (;;)
    std::this_thread::sleep_for(std::chrono::hours(1));
}

}  // namespace jx
