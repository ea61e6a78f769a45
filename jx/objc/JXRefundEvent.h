// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "JXECommerceEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// A refund for a purchase. It is valid if it contains at least one item.
JX_OBJC_CLASS
@interface JXRefundEvent : JXECommerceEvent

/// Creates an event with these values, without validating them. Its list of items is empty.
- (instancetype)initWithID:(nullable NSString*)ID
               withRevenue:(nullable NSDecimalNumber*)revenue
                 withValue:(nullable NSDecimalNumber*)value
              withCurrency:(nullable NSString*)currency
                  withType:(nullable NSString*)type
    JX_SWIFT_NAME("init(__id:revenue:value:currency:type:)");
/// Creates an event with these values, without validating them, and appends the items to its own
/// list; the caller's list is not stored.
- (instancetype)initWithID:(nullable NSString*)ID
               withRevenue:(nullable NSDecimalNumber*)revenue
                 withValue:(nullable NSDecimalNumber*)value
              withCurrency:(nullable NSString*)currency
                  withType:(nullable NSString*)type
                 withItems:(nullable NSArray<JXItem*>*)items
    JX_SWIFT_NAME("init(__id:revenue:value:currency:type:items:)");
/// Creates an event named "refund"; all other fields are nil or empty.
- (instancetype)init;

/// The identifier of the refunded order.
@property(nonatomic, copy, nullable) NSString* ID;
/// The revenue, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* revenue JX_REFINED_FOR_SWIFT;
/// The monetary value of the event, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* value JX_REFINED_FOR_SWIFT;
/// The shipping costs, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* shippingAmount JX_REFINED_FOR_SWIFT;
/// The tax, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* taxAmount JX_REFINED_FOR_SWIFT;
/// The coupon code used.
@property(nonatomic, copy, nullable) NSString* coupon;
/// The type of the transaction, a free-form string.
@property(nonatomic, copy, nullable) NSString* type;
/// A URL that belongs to the transaction.
@property(nonatomic, copy, nullable) NSString* url;

@end

NS_ASSUME_NONNULL_END
