// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXAddShippingInfoEvent.h"

#include "jx/events/ecommerce/JXAddShippingInfoEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXAddShippingInfoEvent;
using namespace jx::objc;

@implementation JXAddShippingInfoEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithItems:(NSArray<JXItem*>*)items
                    withValue:(NSDecimalNumber*)value
                 withCurrency:(NSString*)currency {
  self = [self jx_initWithCore:Core::initWithItems_withValue_withCurrency(
                                   {}, toDecimal(value, "JXAddShippingInfoEvent.value"),
                                   toString(currency, "JXAddShippingInfoEvent.currency"))];
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
  if (!isNilOr([NSNumber class], value, "JXAddShippingInfoEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXAddShippingInfoEvent.value"));
}

- (NSString*)coupon {
  return toFoundation(coreOf<Core>(self).coupon());
}

- (void)setCoupon:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXAddShippingInfoEvent.coupon")) return;
  coreOf<Core>(self).setCoupon(toString(value, "JXAddShippingInfoEvent.coupon"));
}

- (NSString*)shippingTier {
  return toFoundation(coreOf<Core>(self).shippingTier());
}

- (void)setShippingTier:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXAddShippingInfoEvent.shippingTier")) return;
  coreOf<Core>(self).setShippingTier(toString(value, "JXAddShippingInfoEvent.shippingTier"));
}

@end
