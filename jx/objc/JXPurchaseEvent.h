// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#import "JXECommerceEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// A completed purchase: items, amounts, payment method and order status.
JX_OBJC_CLASS
@interface JXPurchaseEvent : JXECommerceEvent

/// Creates an event with these values, without validating them, and appends the items to its own
/// list; the caller's list is not stored.
- (instancetype)initWithId:(nullable NSString*)ID
               withRevenue:(nullable NSDecimalNumber*)revenue
                 withValue:(nullable NSDecimalNumber*)value
              withCurrency:(nullable NSString*)currency
                  withType:(nullable NSString*)type
         withPaymentMethod:(nullable NSString*)paymentMethod
                withStatus:(nullable NSString*)status
                 withItems:(nullable NSArray<JXItem*>*)items
    JX_SWIFT_NAME("init(__id:revenue:value:currency:type:paymentMethod:status:items:)");
/// Creates an event named "purchase"; all other fields are nil or empty.
- (instancetype)init;

/// The identifier of the order.
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
/// The payment method: an `EJXPayementMethod_*` string or any other string. Not validated further.
@property(nonatomic, copy, nullable) NSString* paymentMethod;
/// The status: an `EJXPurchaseStatus_*` string or any other string. Not validated further.
@property(nonatomic, copy, nullable) NSString* status;
/// A URL that belongs to the transaction.
@property(nonatomic, copy, nullable) NSString* url;

@end

NS_ASSUME_NONNULL_END
