// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "JXECommerceEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// Items were added to the cart.
JX_OBJC_CLASS
@interface JXAddToCartEvent : JXECommerceEvent

/// Creates an event and appends the items to its own list; the caller's list is not stored.
- (instancetype)initWithItems:(nullable NSArray<JXItem*>*)items JX_SWIFT_NAME("init(items:)");
/// Creates an event with this value and currency, without validating them, and appends the items to
/// its own list; the caller's list is not stored.
- (instancetype)initWithValue:(nullable NSDecimalNumber*)value
                 withCurrency:(nullable NSString*)currency
                    withItems:(nullable NSArray<JXItem*>*)items
    JX_SWIFT_NAME("init(__value:currency:items:)");
/// Creates an event named "add_to_cart"; all other fields are nil or empty.
- (instancetype)init;

/// The monetary value of the event, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* value JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
