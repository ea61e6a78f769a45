// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// Device and screen, as reported by UIKit and the kernel. UIKit is called on the calling thread,
/// so the first ServerSide must be created on the main thread.
JXString deviceModelName();
JXString deviceSystemName();
JXString deviceSystemVersion();
JXString deviceVendorIdentifier();
JXString deviceMachineName();
JXScreenBounds mainScreenBounds();

}  // namespace jx
