// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXSearchEvent.h"

#include "jx/events/engagement/JXSearchEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXSearchEvent;
using namespace jx::objc;

@implementation JXSearchEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithSearchTerm:(NSString*)searchTerm {
  return [self
      jx_initWithCore:Core::initWithSearchTerm(toString(searchTerm, "JXSearchEvent.searchTerm"))];
}

- (instancetype)init {
  return [super init];
}

- (NSString*)searchTerm {
  return toFoundation(coreOf<Core>(self).searchTerm());
}

- (void)setSearchTerm:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXSearchEvent.searchTerm")) return;
  coreOf<Core>(self).setSearchTerm(toString(value, "JXSearchEvent.searchTerm"));
}

@end
