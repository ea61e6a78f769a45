// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// The application's standard user defaults. On tvOS they are the one place whose content the
/// system keeps for good, so the identifiers live there and not beside the outbox. Thread-safe.
class JXFoundationDefaults final : public JXPlatformDefaults {
 public:
  /// Absent also for an entry that holds neither a text nor bytes.
  JXString objectForKey(const JXString& key) override;
  /// A text that is not UTF-8 is stored as bytes, so that it is read back as it was. An absent or
  /// empty key, or one that is not UTF-8, names no entry.
  void setObject_forKey(const JXString& value, const JXString& key) override;
  void synchronize() override;
};

}  // namespace jx
