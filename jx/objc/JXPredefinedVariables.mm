// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXPredefinedVariables.h"

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#include "jx/session/JXPredefinedVariables.h"

using Core = jx::JXPredefinedVariables;
using namespace jx::objc;

static constexpr char kPlace[] = "JXPredefinedVariables";

#define JX_VARIABLE(name)                               \
  -(NSString*)name {                                    \
    return toFoundation(Core::sharedInstance().name()); \
  }

@implementation JXPredefinedVariables

+ (JXPredefinedVariables*)sharedInstance {
  static JXPredefinedVariables* const instance = [[JXPredefinedVariables alloc] init];
  return instance;
}

- (instancetype)reinit {
  Core::sharedInstance().reinit();
  return self;
}

- (void)addData:(NSString*)key withValue:(NSString*)value {
  const jx::JXString converted = toString(value, kPlace);
  // Only nil removes a variable, not an object of a wrong class.
  if (value != nil && !converted.isPresent()) return;
  Core::sharedInstance().addData_withValue(toString(key, kPlace), converted);
}

- (void)addData:(id)entries {
  if ([entries isKindOfClass:[JXDynamicStore class]]) {
    Core::sharedInstance().addData(coreStore(entries));
  } else {
    Core::sharedInstance().addData(toJsonObject(entries, kPlace));
  }
}

- (NSString*)getData:(NSString*)key {
  return toFoundation(Core::sharedInstance().getData(toString(key, kPlace)));
}

- (NSString*)removeData:(NSString*)key {
  return toFoundation(Core::sharedInstance().removeData(toString(key, kPlace)));
}

- (void)clearData {
  Core::sharedInstance().clearData();
}

- (int64_t)now {
  return Core::sharedInstance().now();
}

- (int64_t)nowMs {
  return Core::sharedInstance().nowMs();
}

- (int32_t)randomInt {
  return Core::sharedInstance().randomInt();
}

- (void)useLegacyUniqueIDForAnonymousID {
  Core::sharedInstance().useLegacyUniqueIDForAnonymousID();
}

- (void)useLegacyUniqueIDForConsentID {
  Core::sharedInstance().useLegacyUniqueIDForConsentID();
}

- (void)changeNotificationCenter:(NSNotificationCenter*)center {
  Core::sharedInstance().changeNotificationCenter(coreCenter(center));
}

JX_VARIABLE(nowMsString)
JX_VARIABLE(nowString)
JX_VARIABLE(randomString)
JX_VARIABLE(findDeviceIP)
JX_VARIABLE(phoneModel)
JX_VARIABLE(systemName)
JX_VARIABLE(systemVersion)
JX_VARIABLE(norvaneVersion)
JX_VARIABLE(applicationVersion)
JX_VARIABLE(applicationBuild)
JX_VARIABLE(manufacturer)
JX_VARIABLE(language)
JX_VARIABLE(charset)
JX_VARIABLE(uniqueIdentifier)
JX_VARIABLE(navNumberVisit)
JX_VARIABLE(numberSession)
JX_VARIABLE(nav_TimestampCurrentVisitMs)
JX_VARIABLE(timestampCurrentVisitMs)
JX_VARIABLE(timestampLastCallMs)
JX_VARIABLE(userAgent)

- (JXDynamicStore*)dynamicStore {
  return storeOf(Core::sharedInstance().dynamicStore());
}

- (BOOL)isBackground {
  return Core::sharedInstance().isBackground() ? YES : NO;
}

- (uint64_t)visitDuration {
  return Core::sharedInstance().visitDuration();
}

- (void)setVisitDuration:(uint64_t)value {
  Core::sharedInstance().setVisitDuration(value);
}

@end
