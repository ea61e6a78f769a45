// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// The application's standard user defaults. On tvOS they are the only permanent storage, so the
/// identifiers are stored there and not next to the outbox. Thread-safe.
class JXFoundationDefaults final : public JXPlatformDefaults {
 public:
  /// Also returns null for an entry that is neither a string nor data.
  JXString objectForKey(const JXString& key) override;
  /// Stores a string that is not UTF-8 as data, so that it is read back unchanged. Ignores a key
  /// that is null, empty or not UTF-8.
  void setObject_forKey(const JXString& value, const JXString& key) override;
  void synchronize() override;
};

}  // namespace jx
