// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXPageViewEvent.h"

#include "jx/events/engagement/JXPageViewEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXPageViewEvent;
using namespace jx::objc;

@implementation JXPageViewEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithType:(NSString*)pageType {
  return [self jx_initWithCore:Core::initWithType(toString(pageType, "JXPageViewEvent.pageType"))];
}

- (instancetype)init {
  return [super init];
}

@end
