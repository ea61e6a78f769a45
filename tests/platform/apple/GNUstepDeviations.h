// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/platform/contract/PlatformUnderTest.h"

namespace jx::test {

/// Where GNUstep's Foundation does otherwise than the system that the platform is written for. All
/// that the tests on GNUstep take into account stands here.
inline void allowForGNUstep(PlatformUnderTest& system) {
  // Its NSUUID fills all sixteen bytes with random ones and sets neither version nor variant, so
  // that the text does not say that it is random. It is, all the same.
  system.uuidsStateTheirVersion = false;
}

}  // namespace jx::test
