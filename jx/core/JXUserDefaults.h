// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Reads and writes texts that outlive the process. Thread-safe.
class JX_API JXUserDefaults {
 public:
  JXUserDefaults() = delete;

  /// The value, absent when there is none.
  static JXString retrieveInfoFromUserDefaults(const JXString& key);
  /// Stores at once: readable when this returns, also after a kill. An absent value removes the
  /// entry; an absent label is ignored. Where nothing can be persisted the value is dropped.
  static void saveInfoToUserDefaults_forLabel(const JXString& value, const JXString& label);

  /// While one lives, what its thread saves is stored in one go at its end. For values that belong
  /// together; not nested.
  class JX_API Changes {
   public:
    Changes();
    ~Changes();
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

   private:
    JXPlatformDefaults* const defaults_;
  };

  /// The store itself, null when there is none to be had; for operations that must know.
  static JXPlatformDefaults* standardUserDefaults();
};

}  // namespace jx
