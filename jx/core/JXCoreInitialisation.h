// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/platform/JXApi.h"

namespace jx {

/// Starts the core. The object itself is empty and can be destroyed immediately; creating a second
/// one has no effect.
class JX_API JXCoreInitialisation {
 public:
  /// Starts the core unless it has started. Returns an object owned by the caller; never null.
  static std::shared_ptr<JXCoreInitialisation> init();

 private:
  JXCoreInitialisation() = default;
};

}  // namespace jx
