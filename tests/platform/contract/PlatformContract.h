// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/platform/contract/PlatformUnderTest.h"

namespace jx::test {

/// Tests the contract of JXPlatform on any system.
class PlatformContract : public ::testing::Test {
 protected:
  PlatformContract() : system_(platformUnderTest()) {}

  JXPlatform& platform() {
    if (!platform_) platform_ = system_.make(overrides_);
    return *platform_;
  }

  static bool isUpperCaseUUID(const JXString& text);

  const PlatformUnderTest& system_;
  JXHostOverrides overrides_;  ///< to be changed before the first `platform()`
  std::shared_ptr<JXPlatform> platform_;
};

}  // namespace jx::test
