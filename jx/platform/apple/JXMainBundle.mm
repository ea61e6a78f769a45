// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXMainBundle.h"

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {
namespace {

void complete(JXString& value, id bundleValue) {
  if (!value.isPresent()) value = stringOf(bundleValue);
}

}  // namespace

JXBundleInformation completedByMainBundle(const JXBundleInformation& overrides) {
  @autoreleasepool {
    JXBundleInformation bundle = overrides;
    NSBundle* const main = [NSBundle mainBundle];
    complete(bundle.identifier, [main bundleIdentifier]);
    complete(bundle.name, [main objectForInfoDictionaryKey:@"CFBundleName"]);
    complete(bundle.version, [main objectForInfoDictionaryKey:@"CFBundleVersion"]);
    complete(bundle.shortVersion, [main objectForInfoDictionaryKey:@"CFBundleShortVersionString"]);
    return bundle;
  }
}

}  // namespace jx
