// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "jx/events/JXEvent.h"
#import "jx/objc/JXEvent.h"

namespace jx::objc {

/// Returns the C++ event to execute: that of the object, or, if its class or that of an item
/// overrides `getJsonObject`, one that calls that method. Null for nil. If the method fails, the
/// failure is logged, and the event has its inherited fields.
std::shared_ptr<jx::JXEvent> executableEvent(::JXEvent* event);

/// Returns whether an item that was added to the event in Objective-C overrides `getJsonObject`.
bool hasOverridingItem(::JXEvent* event);

/// Logs that an operation of a class of the application failed.
void logFailure(id object, const char* operation, const std::string& reason);

}  // namespace jx::objc
