// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXUser.h"

#include "jx/core/JXUser.h"
#import "jx/objc/internal/JXBlockFields.h"

using Core = jx::JXUser;
using namespace jx::objc;

@implementation JXUser

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return unowned(Core::sharedInstance());
}

+ (JXUser*)sharedInstance {
  static JXUser* const instance = [[JXUser alloc] init];
  return instance;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

JX_STRING_FIELD(JXUser, anonymous_id, setAnonymous_id)
JX_STRING_FIELD(JXUser, consentID, setConsentID)

@end
