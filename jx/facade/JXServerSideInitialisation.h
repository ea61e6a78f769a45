// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/platform/JXApi.h"

namespace jx {

/// Brings the library up, in an order that is fixed. Each `ServerSide` makes one; from the second
/// on, only the core's variables are read into the predefined ones again.
class JX_API JXServerSideInitialisation {
 public:
  /// Starts what has not started yet. The caller owns the object. Never null.
  static std::shared_ptr<JXServerSideInitialisation> init();

 private:
  JXServerSideInitialisation() = default;
};

}  // namespace jx
