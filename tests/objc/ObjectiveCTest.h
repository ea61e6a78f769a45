// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/ServerSideFixture.h"

namespace jx::test {

/// A test that runs in an autorelease pool, with the library started as in ServerSideFixture.
class ObjectiveCTest : public ServerSideFixture {
 protected:
  void SetUp() override { pool_ = [[NSAutoreleasePool alloc] init]; }
  void TearDown() override { [pool_ release]; }

  static std::string text(NSString* string) {
    return string == nil ? "(nil)" : [string UTF8String];
  }
  static NSDecimalNumber* decimal(NSString* digits) {
    return [NSDecimalNumber decimalNumberWithString:digits];
  }

 private:
  NSAutoreleasePool* pool_ = nil;
};

}  // namespace jx::test
