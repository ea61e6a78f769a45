// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXViewItem.h"

#include "jx/events/ecommerce/JXViewItem.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXViewItem;
using namespace jx::objc;

@implementation JXViewItem

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

- (NSDecimalNumber*)revenue {
  return toFoundation(coreOf<Core>(self).revenue());
}

- (void)setRevenue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXViewItem.revenue")) return;
  coreOf<Core>(self).setRevenue(toDecimal(value, "JXViewItem.revenue"));
}

@end
