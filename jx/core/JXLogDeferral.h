// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"

namespace jx {

/// Keeps the messages that the calling thread logs, and logs them when the thread's outermost
/// deferral ends. Declared before a lock, so that no lock is held while a log sink runs.
class JX_API JXLogDeferral {
 public:
  JXLogDeferral() noexcept;
  ~JXLogDeferral();
  JXLogDeferral(const JXLogDeferral&) = delete;
  JXLogDeferral& operator=(const JXLogDeferral&) = delete;
};

}  // namespace jx
