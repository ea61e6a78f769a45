// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Reads and writes strings that are kept across launches. Thread-safe.
class JX_API JXUserDefaults {
 public:
  JXUserDefaults() = delete;

  /// Returns the value of `key`; null when there is none.
  static JXString retrieveInfoFromUserDefaults(const JXString& key);
  /// Stores `value` before it returns; the value survives a killed process. A null value removes
  /// the entry; a null label is ignored. Without a store, the value is discarded.
  static void saveInfoToUserDefaults_forLabel(const JXString& value, const JXString& label);

  /// Stores all values that the thread saves during its lifetime in one write: at its end, or with
  /// the event that the thread is executing. Groups related values; must not be nested.
  class JX_API Changes {
   public:
    Changes();
    ~Changes();
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

   private:
    JXPlatformDefaults* const defaults_;
  };

  /// Returns the store; null when none is available.
  static JXPlatformDefaults* standardUserDefaults();
};

}  // namespace jx
