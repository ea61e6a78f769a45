// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXCoreVariables.h"

#include "jx/core/JXCoreVariables.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXDate.h"

using Core = jx::JXCoreVariables;
using namespace jx::objc;

static constexpr char kPlace[] = "JXCoreVariables";

@implementation JXCoreVariables

+ (JXCoreVariables*)sharedInstance {
  static JXCoreVariables* const instance = [[JXCoreVariables alloc] init];
  return instance;
}

- (NSString*)getData:(NSString*)key {
  return toFoundation(Core::sharedInstance().getData(toString(key, kPlace)));
}

- (void)addData:(NSString*)key withValue:(NSString*)value {
  const jx::JXString converted = toString(value, kPlace);
  // Only nil removes a key, not an object of a wrong class.
  if (value != nil && !converted.isPresent()) return;
  Core::sharedInstance().addData_withValue(toString(key, kPlace), converted);
}

- (int64_t)nowMs {
  return Core::sharedInstance().nowMs();
}

- (NSDate*)now {
  return dateOf(Core::sharedInstance().now());
}

- (NSString*)nowMsString {
  return toFoundation(Core::sharedInstance().nowMsString());
}

- (NSString*)nowString {
  return toFoundation(Core::sharedInstance().nowString());
}

- (void)setIDFV {
  Core::sharedInstance().setIDFV();
}

- (JXDynamicStore*)dynamicStore {
  return storeOf(Core::sharedInstance().dynamicStore());
}

- (BOOL)enableSDKInBG {
  return Core::sharedInstance().enableSDKInBG() ? YES : NO;
}

- (void)setEnableSDKInBG:(BOOL)value {
  Core::sharedInstance().setEnableSDKInBG(value != NO);
}

@end
