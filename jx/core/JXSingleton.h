// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"

namespace jx {

/// Base of the library's process-wide objects. Each keeps its one instance itself, made once by its
/// class operation `sharedInstance` and never destroyed, so that a call from a host's static
/// destructor still finds it.
class JX_API JXSingleton {
 public:
  JXSingleton(const JXSingleton&) = delete;
  JXSingleton& operator=(const JXSingleton&) = delete;

 protected:
  JXSingleton() = default;
  ~JXSingleton() = default;

  /// The base's part of `init`. False says that it failed; the object then gives up its own
  /// initialisation with its start guard as it stands.
  virtual bool baseInit() { return true; }
};

}  // namespace jx
