// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A message that one object posts and others observe by name.
struct JX_API JXNotification {
  /// Name of the notification, which observers register for.
  JXString name;
  /// Sender or subject, for comparison only: never dereferenced, may be null.
  const void* object = nullptr;
  /// Additional data; null when there is none.
  JXJsonObject userInfo{nullptr};
};

}  // namespace jx
