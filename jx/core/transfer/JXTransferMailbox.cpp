// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferMailbox.h"

namespace jx {

JXTransferCommands JXTransferMailbox::commands() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return commands_;
}

JXTransferCommands JXTransferMailbox::readCommands() {
  hasCommand_.store(false);
  const std::lock_guard<std::mutex> lock(mutex_);
  return commands_;
}

bool JXTransferMailbox::prepareToSleep(bool ignoresAdditions) {
  sleepState_.store(ignoresAdditions ? SleepState::SleepingUntilCommand
                                     : SleepState::SleepingUntilAny);
  if (!hasCommand_.load() && (ignoresAdditions || !added_.load())) return true;
  sleepState_.store(SleepState::Running);
  return false;
}

}  // namespace jx
