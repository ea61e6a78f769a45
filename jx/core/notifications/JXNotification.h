// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A message that one object posts and others observe by its name.
struct JX_API JXNotification {
  /// What it is about; observers ask for it.
  JXString name;
  /// Who it is about, for comparison only: it is never followed, and may be null.
  const void* object = nullptr;
  /// What goes with it; absent when nothing does.
  JXJsonObject userInfo{nullptr};
};

}  // namespace jx
