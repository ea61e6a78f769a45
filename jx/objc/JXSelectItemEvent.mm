// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXSelectItemEvent.h"

#include "jx/events/engagement/JXSelectItemEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXSelectItemEvent;
using namespace jx::objc;

@implementation JXSelectItemEvent

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

- (NSString*)itemListName {
  return toFoundation(coreOf<Core>(self).itemListName());
}

- (void)setItemListName:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXSelectItemEvent.itemListName")) return;
  coreOf<Core>(self).setItemListName(toString(value, "JXSelectItemEvent.itemListName"));
}

- (NSMutableArray*)items {
  return fieldArray(self, coreOf<Core>(self).items(), "JXSelectItemEvent.items");
}

- (void)setItems:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setItems, value, "JXSelectItemEvent.items");
}

@end
