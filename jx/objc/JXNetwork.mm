// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXNetwork.h"

#include "jx/core/JXNetwork.h"
#import "jx/objc/internal/JXBlockFields.h"

using Core = jx::JXNetwork;
using namespace jx::objc;

@implementation JXNetwork

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return unowned(Core::sharedInstance());
}

+ (JXNetwork*)sharedInstance {
  static JXNetwork* const instance = [[JXNetwork alloc] init];
  return instance;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

- (void)refresh {
  coreOf<Core>(self).refresh();
}

@end
