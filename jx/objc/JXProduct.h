// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// One product of the application's catalogue. The application fills it. It must not be changed
/// while an event that contains it is being executed. A price that is NaN is not written and counts
/// as not set in `verifyProduct`.
JX_OBJC_CLASS
@interface JXProduct : JXAdditionalProperties

/// Creates a product with these values, without validating them.
- (instancetype)initWithProductId:(nullable NSString*)productId
                         withName:(nullable NSString*)name
                        withPrice:(nullable NSDecimalNumber*)price
    JX_SWIFT_NAME("init(__productId:name:price:)");
/// Creates a product whose fields are all nil; both lists are empty.
- (instancetype)init;

/// Returns true if `ID` and `name` are non-empty strings and `price` is set. Any price but NaN is
/// valid.
- (BOOL)verifyProduct;
/// Returns a new object: the additional properties, then the fields, which override them.
/// Categories are written as "category_1", "category_2" and so on by their position in the list. A
/// nil category is not written and its number is not used.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");

/// The identifier of the product. Required.
@property(nonatomic, copy, nullable) NSString* ID;
/// The name of the product. Required.
@property(nonatomic, copy, nullable) NSString* name;
/// The unit price, in units of `currency`. Required.
@property(nonatomic, copy, nullable) NSDecimalNumber* price JX_REFINED_FOR_SWIFT;
/// The currency of the price, preferably an ISO 4217 code such as "EUR".
@property(nonatomic, copy, nullable) NSString* currency;
/// The product's categories, initially empty; callers may append to the list.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<NSString*>* categories JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setCategories:(nullable NSArray<NSString*>*)categories JX_REFINED_FOR_SWIFT;
/// The brand.
@property(nonatomic, copy, nullable) NSString* brand;
/// The product's colors, initially empty; callers may append to the list.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<NSString*>* colors JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setColors:(nullable NSArray<NSString*>*)colors JX_REFINED_FOR_SWIFT;
/// The size, as a string.
@property(nonatomic, copy, nullable) NSString* size;

@end

NS_ASSUME_NONNULL_END
