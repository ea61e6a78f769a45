// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// What UIKit and the kernel know of the device and its screen. UIKit is asked on the calling
/// thread, so the first ServerSide belongs on the main thread.
JXString deviceModelName();
JXString deviceSystemName();
JXString deviceSystemVersion();
JXString deviceVendorIdentifier();
JXString deviceMachineName();
JXScreenBounds mainScreenBounds();

}  // namespace jx
