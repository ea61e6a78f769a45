// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXStartGuard.h"

#include <chrono>
#include <thread>

namespace jx {

bool tryBeginInit(int& state) {
  // Read once: a thread that calls while an initialisation runs blocks forever, even after it ends.
  const int found = state;
  if (found == kJXInitRunning) neverReturn();
  if (found != kJXInitNever && found != kJXInitAgain) return false;
  state = kJXInitRunning;
  return true;
}

void neverReturn() {
  for (;;)
    std::this_thread::sleep_for(std::chrono::hours(1));
}

}  // namespace jx
