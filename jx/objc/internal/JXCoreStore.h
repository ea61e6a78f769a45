// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/JXDynamicStore.h"
#import "jx/objc/JXDynamicStore.h"

namespace jx::objc {

/// Returns the C++ store; null for nil.
std::shared_ptr<JXDynamicStore> coreStore(::JXDynamicStore* store);
/// Returns an object that holds the C++ store; nil for null.
::JXDynamicStore* storeOf(const std::shared_ptr<JXDynamicStore>& core);

}  // namespace jx::objc
