// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXLifecycle.h"

#import "jx/objc/internal/JXBlockFields.h"
#include "jx/session/JXLifecycle.h"

using Core = jx::JXLifecycle;
using namespace jx::objc;

@implementation JXLifecycle

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return unowned(Core::sharedInstance());
}

+ (JXLifecycle*)sharedInstance {
  static JXLifecycle* const instance = [[JXLifecycle alloc] init];
  return instance;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

- (void)refreshContent {
  coreOf<Core>(self).refreshContent();
}

JX_STRING_FIELD(JXLifecycle, sessionID, setSessionID)
JX_BOOL_FIELD(JXLifecycle, isNewSession, setIsNewSession)
JX_STRING_FIELD(JXLifecycle, sessionDuration, setSessionDuration)
JX_STRING_FIELD(JXLifecycle, currentSession, setCurrentSession)
JX_STRING_FIELD(JXLifecycle, visitNumber, setVisitNumber)
JX_STRING_FIELD(JXLifecycle, currentVisit, setCurrentVisit)
JX_STRING_FIELD(JXLifecycle, currentVersionFirstVisit, setCurrentVersionFirstVisit)
JX_STRING_FIELD(JXLifecycle, sessionNumber, setSessionNumber)
JX_STRING_FIELD(JXLifecycle, firstVisit, setFirstVisit)
JX_STRING_FIELD(JXLifecycle, lastVisit, setLastVisit)
JX_STRING_FIELD(JXLifecycle, lastCall, setLastCall)
JX_STRING_FIELD(JXLifecycle, lastSessionStart, setLastSessionStart)
JX_STRING_FIELD(JXLifecycle, lastSessionLastHit, setLastSessionLastHit)
JX_STRING_FIELD(JXLifecycle, foregroundTransitions, setForegroundTransitions)
JX_STRING_FIELD(JXLifecycle, foregroundTime, setForegroundTime)
JX_STRING_FIELD(JXLifecycle, backgroundTime, setBackgroundTime)
JX_BOOL_FIELD(JXLifecycle, firstExecute, setFirstExecute)
JX_BOOL_FIELD(JXLifecycle, isFirstVisit, setIsFirstVisit)

@end
