// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXRandom.h"

#include <stdlib.h>

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {

JXString makeFoundationUUID() {
  @autoreleasepool {
    return stringOf([[[NSUUID UUID] UUIDString] uppercaseString]);
  }
}

std::uint32_t drawSystemRandomBits() { return ::arc4random(); }

}  // namespace jx
