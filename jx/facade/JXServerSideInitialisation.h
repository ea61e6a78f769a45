// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/platform/JXApi.h"

namespace jx {

/// Starts the library's components in a fixed order. Each `ServerSide` creates one; the second and
/// later ones only copy the core's variables to the predefined variables again.
class JX_API JXServerSideInitialisation {
 public:
  /// Starts the components that have not started yet. The caller owns the returned object, which is
  /// never null.
  static std::shared_ptr<JXServerSideInitialisation> init();

 private:
  JXServerSideInitialisation() = default;
};

}  // namespace jx
