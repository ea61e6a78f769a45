// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include <chrono>

namespace jx::objc {

/// Returns the time, to the millisecond.
inline NSDate* dateOf(std::chrono::system_clock::time_point time) {
  using Milliseconds = std::chrono::duration<double, std::milli>;
  return
      [NSDate dateWithTimeIntervalSince1970:Milliseconds(time.time_since_epoch()).count() / 1'000];
}

}  // namespace jx::objc
