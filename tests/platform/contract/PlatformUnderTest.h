// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "jx/platform/JXHostOverrides.h"
#include "jx/platform/JXPlatform.h"

namespace jx::test {

/// What a system gives the contract's tests. Each test program defines `platformUnderTest` for the
/// system that it was built with; the tests themselves are the same everywhere.
struct PlatformUnderTest {
  /// A platform as the library makes it.
  std::function<std::shared_ptr<JXPlatform>(const JXHostOverrides&)> make;

  /// What the system says of the application where the host states nothing.
  JXBundleInformation systemBundle;
  /// Post what the system posts when the application leaves and comes back; empty on a system
  /// without such notifications.
  std::function<void()> postDidEnterBackground;
  std::function<void()> postWillEnterForeground;
  /// Whether there is a settings store of the system's own.
  bool hasUserDefaults = false;

  // Where the system of this machine falls short of the promise, set in one place with its reason.
  bool uuidsStateTheirVersion = true;
};

const PlatformUnderTest& platformUnderTest();

}  // namespace jx::test
