// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXSelectContentEvent.h"

#include "jx/events/engagement/JXSelectContentEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXSelectContentEvent;
using namespace jx::objc;

@implementation JXSelectContentEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)init {
  return [super init];
}

- (NSString*)contentType {
  return toFoundation(coreOf<Core>(self).contentType());
}

- (void)setContentType:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXSelectContentEvent.contentType")) return;
  coreOf<Core>(self).setContentType(toString(value, "JXSelectContentEvent.contentType"));
}

- (NSString*)itemID {
  return toFoundation(coreOf<Core>(self).itemID());
}

- (void)setItemID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXSelectContentEvent.itemID")) return;
  coreOf<Core>(self).setItemID(toString(value, "JXSelectContentEvent.itemID"));
}

@end
