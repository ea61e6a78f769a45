// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXFoundationDefaults.h"

#import "jx/platform/apple/JXFoundationString.h"

namespace jx {
namespace {

NSString* entryName(const JXString& key) { return key.testString() ? foundationString(key) : nil; }

id storable(const JXString& value) {
  NSString* const string = foundationString(value);
  if (string != nil) return string;
  return [NSData dataWithBytes:value.view().data() length:value.size()];
}

}  // namespace

JXString JXFoundationDefaults::objectForKey(const JXString& key) {
  @autoreleasepool {
    NSString* const name = entryName(key);
    if (name == nil) return nullptr;
    const id object = [[NSUserDefaults standardUserDefaults] objectForKey:name];
    if (![object isKindOfClass:[NSData class]]) return stringOf(object);
    NSData* const bytes = object;
    return JXString(std::string_view(static_cast<const char*>([bytes bytes]), [bytes length]));
  }
}

void JXFoundationDefaults::setObject_forKey(const JXString& value, const JXString& key) {
  @autoreleasepool {
    NSString* const name = entryName(key);
    if (name == nil) return;
    if (value.isPresent()) {
      [[NSUserDefaults standardUserDefaults] setObject:storable(value) forKey:name];
    } else {
      [[NSUserDefaults standardUserDefaults] removeObjectForKey:name];
    }
  }
}

void JXFoundationDefaults::synchronize() {
  @autoreleasepool {
    [[NSUserDefaults standardUserDefaults] synchronize];
  }
}

}  // namespace jx
