// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/platform/apple/GNUstepDeviations.h"
#include "tests/platform/apple/fakes/Fakes.h"
#include "tests/platform/contract/PlatformUnderTest.h"

namespace jx::test {

const PlatformUnderTest& platformUnderTest() {
  static const PlatformUnderTest onApple = [] {
    PlatformUnderTest system;
    system.make = [](const JXHostOverrides& host) {
      return makeSystemPlatform(host.bundle, host.screen, host.userAgent);
    };
    // As in the Info.plist of the tests.
    system.systemBundle = {"com.example.bundle", "Bundle TV", "77", "7.0"};
    system.postDidEnterBackground = postFakeDidEnterBackground;
    system.postWillEnterForeground = postFakeWillEnterForeground;
    system.hasUserDefaults = true;
    allowForGNUstep(system);
    return system;
  }();
  return onApple;
}

}  // namespace jx::test
