// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXAddToWishlistEvent.h"

#include "jx/events/ecommerce/JXAddToWishlistEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXAddToWishlistEvent;
using namespace jx::objc;

@implementation JXAddToWishlistEvent

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
  if (!isNilOr([NSNumber class], value, "JXAddToWishlistEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXAddToWishlistEvent.value"));
}

@end
