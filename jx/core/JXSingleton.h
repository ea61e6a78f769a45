// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"

namespace jx {

/// Base class of the library's process-wide objects. Each class owns its single instance, which
/// `sharedInstance` creates once. It is never destroyed, so that the application's static
/// destructors can still use it.
class JX_API JXSingleton {
 public:
  JXSingleton(const JXSingleton&) = delete;
  JXSingleton& operator=(const JXSingleton&) = delete;

 protected:
  JXSingleton() = default;
  ~JXSingleton() = default;

  /// The base class part of `init`. Returns false on failure; the object then cancels its
  /// initialisation and leaves its start guard unchanged.
  virtual bool baseInit() { return true; }
};

}  // namespace jx
