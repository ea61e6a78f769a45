// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "JXECommerceEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// The viewer selected a shipping method for the items.
JX_OBJC_CLASS
@interface JXAddShippingInfoEvent : JXECommerceEvent

/// Creates an event with this value and currency, without validating them, and appends the items to
/// its own list; the caller's list is not stored.
- (instancetype)initWithItems:(nullable NSArray<JXItem*>*)items
                    withValue:(nullable NSDecimalNumber*)value
                 withCurrency:(nullable NSString*)currency
    JX_SWIFT_NAME("init(__items:value:currency:)");
/// Creates an event named "add_shipping_info"; all other fields are nil or empty.
- (instancetype)init;

/// The monetary value of the event, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* value JX_REFINED_FOR_SWIFT;
/// The coupon code used.
@property(nonatomic, copy, nullable) NSString* coupon;
/// The name of the selected shipping method.
@property(nonatomic, copy, nullable) NSString* shippingTier;

@end

NS_ASSUME_NONNULL_END
