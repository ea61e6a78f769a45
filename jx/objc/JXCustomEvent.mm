// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXCustomEvent.h"

#include "jx/events/JXCustomEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXCustomEvent;
using namespace jx::objc;

@implementation JXCustomEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::initWithName(nullptr);
}

- (instancetype)initWithName:(NSString*)name {
  return [self jx_initWithCore:Core::initWithName(toString(name, "JXCustomEvent.name"))];
}

- (instancetype)init {
  return [super init];
}

@end
