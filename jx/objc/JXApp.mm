// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXApp.h"

#import "jx/objc/internal/JXBlockFields.h"
#include "jx/session/JXApp.h"

using Core = jx::JXApp;
using namespace jx::objc;

@implementation JXApp

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return unowned(Core::sharedInstance());
}

+ (JXApp*)sharedInstance {
  static JXApp* const instance = [[JXApp alloc] init];
  return instance;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

- (instancetype)reinit {
  coreOf<Core>(self).reinit();
  return self;
}

- (void)refreshContent {
  coreOf<Core>(self).refreshContent();
}

JX_STRING_FIELD(JXApp, name, setName)
JX_STRING_FIELD(JXApp, version, setVersion)
JX_STRING_FIELD(JXApp, build, setBuild)
JX_STRING_FIELD(JXApp, nameSpace, setNameSpace)
JX_STRING_FIELD(JXApp, serverSideVersion, setServerSideVersion)
JX_STRING_FIELD(JXApp, coreVersion, setCoreVersion)
JX_STRING_FIELD(JXApp, consentVersion, setConsentVersion)

@end
