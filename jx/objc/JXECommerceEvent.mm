// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXECommerceEvent.h"

#include "jx/events/JXECommerceEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXECommerceEvent;
using namespace jx::objc;

@implementation JXECommerceEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)init {
  return [super init];
}

- (NSString*)currency {
  return toFoundation(coreOf<Core>(self).currency());
}

- (void)setCurrency:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXECommerceEvent.currency")) return;
  coreOf<Core>(self).setCurrency(toString(value, "JXECommerceEvent.currency"));
}

- (NSMutableArray*)items {
  return fieldArray(self, coreOf<Core>(self).items(), "JXECommerceEvent.items");
}

- (void)setItems:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setItems, value, "JXECommerceEvent.items");
}

@end
