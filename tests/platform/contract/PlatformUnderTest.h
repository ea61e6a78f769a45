// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "jx/platform/JXHostOverrides.h"
#include "jx/platform/JXPlatform.h"

namespace jx::test {

/// System-specific part of the contract tests. Each test program defines `platformUnderTest` for
/// its system; the tests are the same for all systems.
struct PlatformUnderTest {
  /// Creates a platform as the library does.
  std::function<std::shared_ptr<JXPlatform>(const JXHostOverrides&)> make;

  /// Values of the system for an application that sets none.
  JXBundleInformation systemBundle;
  /// Post the notifications of the system that the application enters the background and returns to
  /// the foreground; empty on a system without such notifications.
  std::function<void()> postDidEnterBackground;
  std::function<void()> postWillEnterForeground;
  /// Whether the system has a settings store.
  bool hasUserDefaults = false;

  // Deviations of the system of this machine from the contract.
  bool uuidsHaveAVersion = true;
};

const PlatformUnderTest& platformUnderTest();

}  // namespace jx::test
