// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXBeginCheckoutEvent.h"

#include "jx/events/ecommerce/JXBeginCheckoutEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXBeginCheckoutEvent;
using namespace jx::objc;

@implementation JXBeginCheckoutEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithRevenue:(NSDecimalNumber*)revenue
                      withValue:(NSDecimalNumber*)value
                   withCurrency:(NSString*)currency
                      withItems:(NSArray<JXItem*>*)items {
  self = [self jx_initWithCore:Core::initWithRevenue_withValue_withCurrency_withItems(
                                   toDecimal(revenue, "JXBeginCheckoutEvent.revenue"),
                                   toDecimal(value, "JXBeginCheckoutEvent.value"),
                                   toString(currency, "JXBeginCheckoutEvent.currency"), {})];
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
  if (!isNilOr([NSNumber class], value, "JXBeginCheckoutEvent.revenue")) return;
  coreOf<Core>(self).setRevenue(toDecimal(value, "JXBeginCheckoutEvent.revenue"));
}

- (NSDecimalNumber*)value {
  return toFoundation(coreOf<Core>(self).value());
}

- (void)setValue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXBeginCheckoutEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXBeginCheckoutEvent.value"));
}

- (NSString*)coupon {
  return toFoundation(coreOf<Core>(self).coupon());
}

- (void)setCoupon:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXBeginCheckoutEvent.coupon")) return;
  coreOf<Core>(self).setCoupon(toString(value, "JXBeginCheckoutEvent.coupon"));
}

@end
