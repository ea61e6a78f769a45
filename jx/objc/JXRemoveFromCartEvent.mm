// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXRemoveFromCartEvent.h"

#include "jx/events/ecommerce/JXRemoveFromCartEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXRemoveFromCartEvent;
using namespace jx::objc;

@implementation JXRemoveFromCartEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithItems:(NSArray<JXItem*>*)items {
  self = [self jx_initWithCore:Core::initWithItems({})];
  if (self == nil) return nil;
  if (items != nil) [self setItems:items];
  return self;
}

- (instancetype)init {
  return [super init];
}

- (NSDecimalNumber*)value {
  return toFoundation(coreOf<Core>(self).value());
}

- (void)setValue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXRemoveFromCartEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXRemoveFromCartEvent.value"));
}

@end
