// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXClassRegistry.h"

#include "jx/core/JXClassRegistry.h"
#import "jx/objc/internal/JXConversion.h"

using Core = jx::JXClassRegistry;
using jx::objc::toString;

static constexpr char kPlace[] = "JXClassRegistry";

@implementation JXClassRegistry

+ (JXClassRegistry*)sharedInstance {
  static JXClassRegistry* const instance = [[JXClassRegistry alloc] init];
  return instance;
}

- (void)registerClass:(NSString*)name {
  Core::sharedInstance().registerClass(toString(name, kPlace));
}

- (void)unregisterClass:(NSString*)name {
  Core::sharedInstance().unregisterClass(toString(name, kPlace));
}

- (BOOL)hasClass:(NSString*)name {
  if (!jx::objc::isOf([NSString class], name, kPlace)) return NO;
  const bool isKnown = Core::sharedInstance().hasClass(toString(name, kPlace));
  return isKnown || NSClassFromString(name) != Nil ? YES : NO;
}

@end
