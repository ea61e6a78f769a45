// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXPredefinedVariables.h"

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXOwnership.h"
#include "jx/session/JXPredefinedVariables.h"

using Core = jx::JXPredefinedVariables;
using namespace jx::objc;

const int64_t kJXVisitDurationDefaultValue = jx::kJXVisitDurationDefaultValue;

static constexpr char kPlace[] = "JXPredefinedVariables";

#define JX_VARIABLE(name)                               \
  -(NSString*)name {                                    \
    return toFoundation(Core::sharedInstance().name()); \
  }
#define JX_STEP(name)              \
  -(void)name {                    \
    Core::sharedInstance().name(); \
  }
#define JX_TIME_STEP(name)                                \
  -(void)name : (NSString*)time {                         \
    if (!isNilOr([NSString class], time, kPlace)) return; \
    Core::sharedInstance().name(toString(time, kPlace));  \
  }
#define JX_NUMBER(Type, name, setter)     \
  -(Type)name {                           \
    return Core::sharedInstance().name(); \
  }                                       \
  -(void)setter : (Type)value {           \
    Core::sharedInstance().setter(value); \
  }

@implementation JXPredefinedVariables

+ (JXPredefinedVariables*)sharedInstance {
  static JXPredefinedVariables* const instance = [[JXPredefinedVariables alloc] init];
  return instance;
}

- (instancetype)reinit {
  Core::sharedInstance().reinit();
  keepListener(self, &_listener, nil);
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

- (void)addTimestamp:(NSString*)key andTimestampeMs:(NSString*)keyMs withTime:(int64_t)time {
  if (!isNilOr([NSString class], key, kPlace) || !isNilOr([NSString class], keyMs, kPlace)) return;
  Core::sharedInstance().addTimestamp_andTimestampeMs_withTime(toString(key, kPlace),
                                                               toString(keyMs, kPlace), time);
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
JX_VARIABLE(currencyCode)
JX_VARIABLE(currencySymbol)
JX_VARIABLE(getDefaultEncoding)

JX_STEP(useLegacyUniqueIDForAnonymousID)
JX_STEP(useLegacyUniqueIDForConsentID)
JX_STEP(firstExecute)
JX_STEP(computeTimeChangingVariables)
JX_STEP(resetNewSession)

JX_NUMBER(int32_t, totalForegroundTransitions, setTotalForegroundTransitions)
JX_NUMBER(uint64_t, totalForegroundTime, setTotalForegroundTime)
JX_NUMBER(uint64_t, deltaForeground, setDeltaForeground)
JX_NUMBER(uint64_t, totalBackgroundTime, setTotalBackgroundTime)
JX_NUMBER(uint64_t, deltaBackground, setDeltaBackground)
JX_NUMBER(uint64_t, lastTime, setLastTime)
JX_NUMBER(uint64_t, startUsage, setStartUsage)
JX_NUMBER(uint64_t, visitDuration, setVisitDuration)
JX_VARIABLE(pid)

- (void)setPid:(NSString*)value {
  if (isNilOr([NSString class], value, kPlace))
    Core::sharedInstance().setPid(toString(value, kPlace));
}

- (void)onNotificationReceived:(NSNotification*)notification {
  if (!isOf([NSNotification class], notification, kPlace)) return;
  postInCore(notification, [](const jx::JXNotification& core) {
    Core::sharedInstance().onNotificationReceived(core);
  });
}

- (JXDynamicStore*)dynamicStore {
  return storeOf(Core::sharedInstance().dynamicStore());
}

- (void)setDynamicStore:(JXDynamicStore*)value {
  if (!isNilOr([JXDynamicStore class], value, kPlace)) return;
  Core::sharedInstance().setDynamicStore(coreStore(value));
}

- (BOOL)isBackground {
  return Core::sharedInstance().isBackground() ? YES : NO;
}

- (void)setIsBackground:(BOOL)value {
  Core::sharedInstance().setIsBackground(value != NO);
}

- (JXEventListener*)listenerDelegate {
  return keptListener(self, &_listener, Core::sharedInstance().listenerDelegate());
}

- (void)setListenerDelegate:(JXEventListener*)value {
  if (!isNilOr([JXEventListener class], value, kPlace)) return;
  Core::sharedInstance().setListenerDelegate(coreListener(value));
  keepListener(self, &_listener, value);
}

JX_STEP(initIsFirstVisit)
JX_STEP(initLastCallLastVisit)
JX_TIME_STEP(setVisitorIDCurrentCallUniqueID)
JX_STEP(initColdStartNumber)
JX_TIME_STEP(setTimestamps)
JX_TIME_STEP(setFirstVisitUserDefaults)
JX_TIME_STEP(updateVisitUserDefaults)
JX_TIME_STEP(updateVariablesForNewSession)
JX_TIME_STEP(setSessionDuration)
JX_TIME_STEP(initNavTimestampCalls)

- (void)newVisitUserDefaults:(NSString*)firstVisit currentTime:(NSString*)time {
  if (!isNilOr([NSString class], firstVisit, kPlace) || !isNilOr([NSString class], time, kPlace))
    return;
  Core::sharedInstance().newVisitUserDefaults_currentTime(toString(firstVisit, kPlace),
                                                          toString(time, kPlace));
}

- (void)didEnterBackground:(NSNotification*)notification {
  if (isNilOr([NSNotification class], notification, kPlace))
    Core::sharedInstance().didEnterBackground({});
}

- (void)willEnterForeground:(NSNotification*)notification {
  if (isNilOr([NSNotification class], notification, kPlace))
    Core::sharedInstance().willEnterForeground({});
}

JX_TIME_STEP(initComScoreSession)
JX_TIME_STEP(computeDeltaSinceLastLaunch)

- (void)computeStartUsageTime:(BOOL)renewed {
  Core::sharedInstance().computeStartUsageTime(renewed != NO);
}

JX_STEP(setManufacturer)
JX_STEP(setNorvaneVersion)
JX_STEP(setLocalCharset)
JX_STEP(initScreenResolution)
JX_STEP(setApplicationBuild)
JX_STEP(setLocalModel)
JX_STEP(setLocalSysVersion)
JX_STEP(setLocalSysName)
JX_STEP(setLocalLanguage)
JX_STEP(setBundleIdentifier)
JX_STEP(setApplicationName)
JX_STEP(setRuntimeName)
JX_STEP(setModelAndVersion)
JX_STEP(setIsJailBroken)
JX_TIME_STEP(initApplicationVersion)

@end
