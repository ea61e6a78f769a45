// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#import "jx/objc/JXEvent.h"

namespace jx::objc {

/// Returns the C++ event to execute: that of the object, or, if its class overrides
/// `getJsonObject`, one that calls that method. Null for nil. An exception of the method is logged
/// and yields an event with its name only.
std::shared_ptr<jx::JXEvent> executableEvent(::JXEvent* event);

}  // namespace jx::objc
