// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXStorageFolder.h"

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {

JXString cachesStorageFolder() {
  @autoreleasepool {
    NSArray* const folders =
        NSSearchPathForDirectoriesInDomains(NSCachesDirectory, NSUserDomainMask, YES);
    if ([folders count] == 0) return nullptr;
    NSString* const caches = [folders objectAtIndex:0];
    return stringOf([caches stringByAppendingPathComponent:@"jxserverside"]);
  }
}

}  // namespace jx
