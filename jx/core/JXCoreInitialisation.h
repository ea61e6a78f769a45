// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/platform/JXApi.h"

namespace jx {

/// Starts the core. The object itself holds nothing and may be dropped at once; making a second one
/// changes nothing.
class JX_API JXCoreInitialisation {
 public:
  /// Starts the core once. The caller owns the object. Never null.
  static std::shared_ptr<JXCoreInitialisation> init();

 private:
  JXCoreInitialisation() = default;
};

}  // namespace jx
