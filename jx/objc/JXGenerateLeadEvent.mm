// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXGenerateLeadEvent.h"

#include "jx/events/engagement/JXGenerateLeadEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXGenerateLeadEvent;
using namespace jx::objc;

@implementation JXGenerateLeadEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithValue:(NSDecimalNumber*)value withCurrency:(NSString*)currency {
  return [self jx_initWithCore:Core::initWithValue_withCurrency(
                                   toDecimal(value, "JXGenerateLeadEvent.value"),
                                   toString(currency, "JXGenerateLeadEvent.currency"))];
}

- (instancetype)init {
  return [super init];
}

- (NSDecimalNumber*)value {
  return toFoundation(coreOf<Core>(self).value());
}

- (void)setValue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXGenerateLeadEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXGenerateLeadEvent.value"));
}

- (NSString*)currency {
  return toFoundation(coreOf<Core>(self).currency());
}

- (void)setCurrency:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXGenerateLeadEvent.currency")) return;
  coreOf<Core>(self).setCurrency(toString(value, "JXGenerateLeadEvent.currency"));
}

- (NSString*)ID {
  return toFoundation(coreOf<Core>(self).ID());
}

- (void)setID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXGenerateLeadEvent.ID")) return;
  coreOf<Core>(self).setID(toString(value, "JXGenerateLeadEvent.ID"));
}

@end
