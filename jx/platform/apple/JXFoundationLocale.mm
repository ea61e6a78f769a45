// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXFoundationLocale.h"

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {

std::vector<JXString> foundationLanguages() {
  @autoreleasepool {
    std::vector<JXString> tags;
    for (NSString* tag in [NSLocale preferredLanguages]) {
      const JXString string = stringOf(tag);
      if (string.testString()) tags.push_back(string);
    }
    return tags;
  }
}

JXString foundationCurrencyCode() {
  @autoreleasepool {
    return stringOf([[NSLocale currentLocale] objectForKey:NSLocaleCurrencyCode]);
  }
}

JXString foundationCurrencySymbol() {
  @autoreleasepool {
    return stringOf([[NSLocale currentLocale] objectForKey:NSLocaleCurrencySymbol]);
  }
}

std::uint32_t foundationEncoding() {
  return static_cast<std::uint32_t>([NSString defaultCStringEncoding]);
}

JXString foundationTimeZoneName() {
  @autoreleasepool {
    return stringOf([[NSTimeZone localTimeZone] name]);
  }
}

}  // namespace jx
