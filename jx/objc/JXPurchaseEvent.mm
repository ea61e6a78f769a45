// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXPurchaseEvent.h"

#include "jx/events/ecommerce/JXPurchaseEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXPurchaseEvent;
using namespace jx::objc;

@implementation JXPurchaseEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithId:(NSString*)ID
               withRevenue:(NSDecimalNumber*)revenue
                 withValue:(NSDecimalNumber*)value
              withCurrency:(NSString*)currency
                  withType:(NSString*)type
         withPaymentMethod:(NSString*)paymentMethod
                withStatus:(NSString*)status
                 withItems:(NSArray<JXItem*>*)items {
  self = [self
      jx_initWithCore:
          Core::
              initWithId_withRevenue_withValue_withCurrency_withType_withPaymentMethod_withStatus_withItems(
                  toString(ID, "JXPurchaseEvent.ID"), toDecimal(revenue, "JXPurchaseEvent.revenue"),
                  toDecimal(value, "JXPurchaseEvent.value"),
                  toString(currency, "JXPurchaseEvent.currency"),
                  toString(type, "JXPurchaseEvent.type"),
                  toString(paymentMethod, "JXPurchaseEvent.paymentMethod"),
                  toString(status, "JXPurchaseEvent.status"), {})];
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
  if (!isNilOr([NSString class], value, "JXPurchaseEvent.ID")) return;
  coreOf<Core>(self).setID(toString(value, "JXPurchaseEvent.ID"));
}

- (NSDecimalNumber*)revenue {
  return toFoundation(coreOf<Core>(self).revenue());
}

- (void)setRevenue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXPurchaseEvent.revenue")) return;
  coreOf<Core>(self).setRevenue(toDecimal(value, "JXPurchaseEvent.revenue"));
}

- (NSDecimalNumber*)value {
  return toFoundation(coreOf<Core>(self).value());
}

- (void)setValue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXPurchaseEvent.value")) return;
  coreOf<Core>(self).setValue(toDecimal(value, "JXPurchaseEvent.value"));
}

- (NSDecimalNumber*)shippingAmount {
  return toFoundation(coreOf<Core>(self).shippingAmount());
}

- (void)setShippingAmount:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXPurchaseEvent.shippingAmount")) return;
  coreOf<Core>(self).setShippingAmount(toDecimal(value, "JXPurchaseEvent.shippingAmount"));
}

- (NSDecimalNumber*)taxAmount {
  return toFoundation(coreOf<Core>(self).taxAmount());
}

- (void)setTaxAmount:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXPurchaseEvent.taxAmount")) return;
  coreOf<Core>(self).setTaxAmount(toDecimal(value, "JXPurchaseEvent.taxAmount"));
}

- (NSString*)coupon {
  return toFoundation(coreOf<Core>(self).coupon());
}

- (void)setCoupon:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXPurchaseEvent.coupon")) return;
  coreOf<Core>(self).setCoupon(toString(value, "JXPurchaseEvent.coupon"));
}

- (NSString*)type {
  return toFoundation(coreOf<Core>(self).type());
}

- (void)setType:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXPurchaseEvent.type")) return;
  coreOf<Core>(self).setType(toString(value, "JXPurchaseEvent.type"));
}

- (NSString*)paymentMethod {
  return toFoundation(coreOf<Core>(self).paymentMethod());
}

- (void)setPaymentMethod:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXPurchaseEvent.paymentMethod")) return;
  coreOf<Core>(self).setPaymentMethod(toString(value, "JXPurchaseEvent.paymentMethod"));
}

- (NSString*)status {
  return toFoundation(coreOf<Core>(self).status());
}

- (void)setStatus:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXPurchaseEvent.status")) return;
  coreOf<Core>(self).setStatus(toString(value, "JXPurchaseEvent.status"));
}

- (NSString*)url {
  return toFoundation(coreOf<Core>(self).url());
}

- (void)setUrl:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXPurchaseEvent.url")) return;
  coreOf<Core>(self).setUrl(toString(value, "JXPurchaseEvent.url"));
}

@end
