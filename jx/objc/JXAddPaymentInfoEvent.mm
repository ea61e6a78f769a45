// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXAddPaymentInfoEvent.h"

#include "jx/events/ecommerce/JXAddPaymentInfoEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXAddPaymentInfoEvent;
using namespace jx::objc;

@implementation JXAddPaymentInfoEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithPaymentMethod:(NSString*)paymentMethod {
  return [self jx_initWithCore:Core::initWithPaymentMethod(
                                   toString(paymentMethod, "JXAddPaymentInfoEvent.paymentMethod"))];
}

- (instancetype)init {
  return [super init];
}

- (NSString*)paymentMethod {
  return toFoundation(coreOf<Core>(self).paymentMethod());
}

- (void)setPaymentMethod:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXAddPaymentInfoEvent.paymentMethod")) return;
  coreOf<Core>(self).setPaymentMethod(toString(value, "JXAddPaymentInfoEvent.paymentMethod"));
}

- (NSString*)coupon {
  return toFoundation(coreOf<Core>(self).coupon());
}

- (void)setCoupon:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXAddPaymentInfoEvent.coupon")) return;
  coreOf<Core>(self).setCoupon(toString(value, "JXAddPaymentInfoEvent.coupon"));
}

- (NSDecimalNumber*)revenue {
  return toFoundation(coreOf<Core>(self).revenue());
}

- (void)setRevenue:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXAddPaymentInfoEvent.revenue")) return;
  coreOf<Core>(self).setRevenue(toDecimal(value, "JXAddPaymentInfoEvent.revenue"));
}

@end
