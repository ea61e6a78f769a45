// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "jx/platform/JXString.h"

namespace jx {

/// Looks up an Objective-C class by name; null if no loaded framework contains it. Classes of the
/// advertising frameworks are looked up at run time: AppTrackingTransparency was introduced with
/// tvOS 14, and an application without advertising links neither framework.
using JXClassLookup = std::function<void*(const char* name)>;
void* loadedClass(const char* name);

/// From tvOS 14, and if the version is unknown: returns whether AppTrackingTransparency is in its
/// state 3, authorised; false if it is not loaded. Before: returns the setting of AdSupport.
bool isTrackingAllowed(const JXString& systemVersion, const JXClassLookup& classNamed);

/// Returns the identifier of AdSupport; null without AdSupport. All zeros if the viewer does not
/// allow tracking.
JXString advertisingIdentifierString(const JXClassLookup& classNamed);

}  // namespace jx
