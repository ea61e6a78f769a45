// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/platform/contract/PlatformUnderTest.h"

namespace jx::test {

/// Adjusts the tests to all deviations of GNUstep's Foundation from tvOS.
inline void allowForGNUstep(PlatformUnderTest& system) {
  // NSUUID of GNUstep consists of 16 random bytes and sets neither version nor variant.
  system.uuidsHaveAVersion = false;
}

}  // namespace jx::test
