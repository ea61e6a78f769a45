// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXHardware.h"

#import <UIKit/UIKit.h>
#include <sys/utsname.h>

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {

JXString deviceModelName() {
  @autoreleasepool {
    return stringOf([[UIDevice currentDevice] model]);
  }
}

JXString deviceSystemName() {
  @autoreleasepool {
    return stringOf([[UIDevice currentDevice] systemName]);
  }
}

JXString deviceSystemVersion() {
  @autoreleasepool {
    return stringOf([[UIDevice currentDevice] systemVersion]);
  }
}

JXString deviceVendorIdentifier() {
  @autoreleasepool {
    return stringOf([[[UIDevice currentDevice] identifierForVendor] UUIDString]);
  }
}

JXString deviceMachineName() {
  utsname names{};
  return ::uname(&names) < 0 ? JXString() : JXString(names.machine);
}

JXScreenBounds mainScreenBounds() {
  @autoreleasepool {
    UIScreen* const screen = [UIScreen mainScreen];
    // On some run times a method that returns a structure has an undefined result if sent to nil.
    if (screen == nil) return {};
    const CGRect bounds = [screen bounds];
    return {bounds.size.width, bounds.size.height};
  }
}

}  // namespace jx
