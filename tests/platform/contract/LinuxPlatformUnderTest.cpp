// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/platform/contract/PlatformUnderTest.h"

namespace jx::test {

const PlatformUnderTest& platformUnderTest() {
  static const PlatformUnderTest onLinux = [] {
    PlatformUnderTest system;
    system.make = [](const JXHostOverrides& host) {
      return makeSystemPlatform(host.bundle, host.screen, host.userAgent);
    };
    return system;
  }();
  return onLinux;
}

}  // namespace jx::test
