// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXRefundEvent.h"

#include "jx/events/ecommerce/JXRefundEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXRefundEvent;
using namespace jx::objc;

@implementation JXRefundEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithID:(NSString*)ID
               withRevenue:(NSDecimalNumber*)revenue
                 withValue:(NSDecimalNumber*)value
              withCurrency:(NSString*)currency
                  withType:(NSString*)type {
  return [self jx_initWithCore:Core::initWithID_withRevenue_withValue_withCurrency_withType(
                                   toString(ID, "JXRefundEvent.ID"),
                                   toDecimal(revenue, "JXRefundEvent.revenue"),
                                   toDecimal(value, "JXRefundEvent.value"),
                                   toString(currency, "JXRefundEvent.currency"),
                                   toString(type, "JXRefundEvent.type"))];
}

- (instancetype)initWithID:(NSString*)ID
               withRevenue:(NSDecimalNumber*)revenue
                 withValue:(NSDecimalNumber*)value
              withCurrency:(NSString*)currency
                  withType:(NSString*)type
                 withItems:(NSArray<JXItem*>*)items {
  self =
      [self jx_initWithCore:Core::initWithID_withRevenue_withValue_withCurrency_withType_withItems(
                                toString(ID, "JXRefundEvent.ID"),
                                toDecimal(revenue, "JXRefundEvent.revenue"),
                                toDecimal(value, "JXRefundEvent.value"),
                                toString(currency, "JXRefundEvent.currency"),
                                toString(type, "JXRefundEvent.type"), {})];
  if (self == nil) return nil;
  if (items != nil) [self setItems:items];
  return self;
}

- (instancetype)init {
  return [super init];
}

- (NSString*)ID {
  return toFoundation(coreOf<Core>(self).ID());
}

- (void)setID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXRefundEvent.ID")) return;
  coreOf<Core>(self).setID(toString(value, "JXRefundEvent.ID"));
}

- (NSDecimalNumber*)revenue {
  return toFoundation(coreOf<Core>(self).revenue());
}

- (void)setRevenue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXRefundEvent.revenue")) return;
  coreOf<Core>(self).setRevenue(toDecimal(value, "JXRefundEvent.revenue"));
}

- (NSDecimalNumber*)value {
  return toFoundation(coreOf<Core>(self).value());
}

- (void)setValue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXRefundEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXRefundEvent.value"));
}

- (NSDecimalNumber*)shippingAmount {
  return toFoundation(coreOf<Core>(self).shippingAmount());
}

- (void)setShippingAmount:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXRefundEvent.shippingAmount")) return;
  coreOf<Core>(self).setShippingAmount(toDecimal(value, "JXRefundEvent.shippingAmount"));
}

- (NSDecimalNumber*)taxAmount {
  return toFoundation(coreOf<Core>(self).taxAmount());
}

- (void)setTaxAmount:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXRefundEvent.taxAmount")) return;
  coreOf<Core>(self).setTaxAmount(toDecimal(value, "JXRefundEvent.taxAmount"));
}

- (NSString*)coupon {
  return toFoundation(coreOf<Core>(self).coupon());
}

- (void)setCoupon:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXRefundEvent.coupon")) return;
  coreOf<Core>(self).setCoupon(toString(value, "JXRefundEvent.coupon"));
}

- (NSString*)type {
  return toFoundation(coreOf<Core>(self).type());
}

- (void)setType:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXRefundEvent.type")) return;
  coreOf<Core>(self).setType(toString(value, "JXRefundEvent.type"));
}

- (NSString*)url {
  return toFoundation(coreOf<Core>(self).url());
}

- (void)setUrl:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXRefundEvent.url")) return;
  coreOf<Core>(self).setUrl(toString(value, "JXRefundEvent.url"));
}

@end
