// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXMainBundle.h"

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {
namespace {

void complete(JXString& stated, id ofBundle) {
  if (!stated.isPresent()) stated = textOf(ofBundle);
}

}  // namespace

JXBundleInformation completedByMainBundle(const JXBundleInformation& host) {
  @autoreleasepool {
    JXBundleInformation bundle = host;
    NSBundle* const main = [NSBundle mainBundle];
    complete(bundle.identifier, [main bundleIdentifier]);
    complete(bundle.name, [main objectForInfoDictionaryKey:@"CFBundleName"]);
    complete(bundle.version, [main objectForInfoDictionaryKey:@"CFBundleVersion"]);
    complete(bundle.shortVersion, [main objectForInfoDictionaryKey:@"CFBundleShortVersionString"]);
    return bundle;
  }
}

}  // namespace jx
