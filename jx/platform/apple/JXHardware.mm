// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXHardware.h"

#import <UIKit/UIKit.h>
#include <sys/utsname.h>

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {

JXString deviceModelName() {
  @autoreleasepool {
    return textOf([[UIDevice currentDevice] model]);
  }
}

JXString deviceSystemName() {
  @autoreleasepool {
    return textOf([[UIDevice currentDevice] systemName]);
  }
}

JXString deviceSystemVersion() {
  @autoreleasepool {
    return textOf([[UIDevice currentDevice] systemVersion]);
  }
}

JXString deviceVendorIdentifier() {
  @autoreleasepool {
    return textOf([[[UIDevice currentDevice] identifierForVendor] UUIDString]);
  }
}

JXString deviceMachineName() {
  utsname names{};
  return ::uname(&names) < 0 ? JXString() : JXString(names.machine);
}

JXScreenBounds mainScreenBounds() {
  @autoreleasepool {
    UIScreen* const screen = [UIScreen mainScreen];
    // A structure is not asked of nil, whose answer is undefined on some run times.
    if (screen == nil) return {};
    const CGRect bounds = [screen bounds];
    return {bounds.size.width, bounds.size.height};
  }
}

}  // namespace jx
