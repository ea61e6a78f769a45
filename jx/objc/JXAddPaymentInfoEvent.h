// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "JXECommerceEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// The viewer selected a payment method. Items are not required. The field table lists `coupon`
/// twice; it is written once, directly after `paymentMethod`.
JX_OBJC_CLASS
@interface JXAddPaymentInfoEvent : JXECommerceEvent

/// Creates an event with this payment method, without validating it.
- (instancetype)initWithPaymentMethod:(nullable NSString*)paymentMethod
    JX_SWIFT_NAME("init(paymentMethod:)");
/// Creates an event named "add_payment_info"; all other fields are nil or empty.
- (instancetype)init;

/// The payment method: an `EJXPayementMethod_*` string or any other string. Not validated further.
@property(nonatomic, copy, nullable) NSString* paymentMethod;
/// The coupon code used. Written once, directly after `paymentMethod`.
@property(nonatomic, copy, nullable) NSString* coupon;
/// The revenue, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* revenue JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
