// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXLoginEvent.h"

#include "jx/events/engagement/JXLoginEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXLoginEvent;
using namespace jx::objc;

@implementation JXLoginEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)init {
  return [super init];
}

- (NSString*)method {
  return toFoundation(coreOf<Core>(self).method());
}

- (void)setMethod:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXLoginEvent.method")) return;
  coreOf<Core>(self).setMethod(toString(value, "JXLoginEvent.method"));
}

@end
