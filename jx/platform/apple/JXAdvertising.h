// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "jx/platform/JXString.h"

namespace jx {

/// The run time's look-up of an Objective-C class by its name; null when no loaded framework has
/// it. Advertising frameworks are looked up and never linked by name: AppTrackingTransparency came
/// with tvOS 14, and an application without advertising carries neither.
using JXClassLookup = std::function<void*(const char* name)>;
void* loadedClass(const char* name);

/// With AppTrackingTransparency: true in its state 3, authorised. Without it (before tvOS 14): what
/// AdSupport's own switch says. False when there is neither.
bool isTrackingAllowed(const JXClassLookup& classNamed);

/// AdSupport's identifier, absent without AdSupport. All zeros where the viewer allows none.
JXString advertisingIdentifierText(const JXClassLookup& classNamed);

}  // namespace jx
