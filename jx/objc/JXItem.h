// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "JXAdditionalProperties.h"

@class JXProduct;

NS_ASSUME_NONNULL_BEGIN

/// One item of an e-commerce event: a product with its quantity, discount, list position and other
/// attributes. The application fills it. It must not be changed while an event that contains it is
/// being executed. An amount that is NaN is not written and counts as not set in `verifyItem`.
JX_OBJC_CLASS
@interface JXItem : JXAdditionalProperties

/// Creates an item with these values, without validating them; a nil product stays nil.
- (instancetype)initWithItemId:(nullable NSString*)itemId
                   withProduct:(nullable JXProduct*)product
                  withQuantity:(int32_t)quantity JX_SWIFT_NAME("init(itemId:product:quantity:)");
/// Creates an item with an empty product.
- (instancetype)init;

/// Returns true if `ID` is a non-empty string, `product` is set and valid, and `quantity` is set.
/// Any quantity but NaN is valid.
- (BOOL)verifyItem;
/// Returns a new object: the additional properties, then the fields, which override them. The
/// product is nested under "product".
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");

/// The identifier of the item, in addition to that of its product. Required.
@property(nonatomic, copy, nullable) NSString* ID;
/// The product; shared with the application, not copied. Required.
@property(nonatomic, strong, nullable) JXProduct* product;
/// The variant of the product.
@property(nonatomic, copy, nullable) NSString* variant;
/// The position of the item in the list shown to the viewer.
@property(nonatomic, copy, nullable) NSDecimalNumber* list_position JX_REFINED_FOR_SWIFT;
/// The discount, in units of the currency.
@property(nonatomic, copy, nullable) NSDecimalNumber* discount JX_REFINED_FOR_SWIFT;
/// The quantity. Required.
@property(nonatomic, copy, nullable) NSDecimalNumber* quantity JX_REFINED_FOR_SWIFT;
/// The coupon code used for this item.
@property(nonatomic, copy, nullable) NSString* coupon;
/// The shop or affiliate that supplies the item.
@property(nonatomic, copy, nullable) NSString* affiliation;

@end

NS_ASSUME_NONNULL_END
