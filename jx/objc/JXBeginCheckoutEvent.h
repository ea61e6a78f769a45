// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "JXECommerceEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// The viewer began the checkout.
JX_OBJC_CLASS
@interface JXBeginCheckoutEvent : JXECommerceEvent

/// Creates an event with these amounts and currency, without validating them, and appends the items
/// to its own list; the caller's list is not stored.
- (instancetype)initWithRevenue:(nullable NSDecimalNumber*)revenue
                      withValue:(nullable NSDecimalNumber*)value
                   withCurrency:(nullable NSString*)currency
                      withItems:(nullable NSArray<JXItem*>*)items
    JX_SWIFT_NAME("init(__revenue:value:currency:items:)");
/// Creates an event named "begin_checkout"; all other fields are nil or empty.
- (instancetype)init;

/// The revenue, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* revenue JX_REFINED_FOR_SWIFT;
/// The monetary value of the event, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* value JX_REFINED_FOR_SWIFT;
/// The coupon code used.
@property(nonatomic, copy, nullable) NSString* coupon;

@end

NS_ASSUME_NONNULL_END
