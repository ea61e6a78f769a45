// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXItem.h"

#include "jx/events/JXItem.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXItem;
using namespace jx::objc;

@implementation JXItem

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithItemId:(NSString*)itemId
                   withProduct:(JXProduct*)product
                  withQuantity:(int32_t)quantity {
  self = [self jx_initWithCore:Core::initWithItemId_withProduct_withQuantity(
                                   toString(itemId, "JXItem.ID"), nullptr, quantity)];
  if (self == nil) return nil;
  [self setProduct:product];
  return self;
}

- (instancetype)init {
  return [super init];
}

- (BOOL)verifyItem {
  return coreOf<Core>(self).verifyItem() ? YES : NO;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

- (NSString*)ID {
  return toFoundation(coreOf<Core>(self).ID());
}

- (void)setID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXItem.ID")) return;
  coreOf<Core>(self).setID(toString(value, "JXItem.ID"));
}

- (JXProduct*)product {
  return fieldProduct(self, coreOf<Core>(self).product(), @"JXItem.product");
}

- (void)setProduct:(JXProduct*)value {
  if (!isNilOr([JXProduct class], value, "JXItem.product")) return;
  coreOf<Core>(self).setProduct(sharedCore<jx::JXProduct>(value));
  [self jx_setPart:value forField:@"JXItem.product"];
}

- (NSString*)variant {
  return toFoundation(coreOf<Core>(self).variant());
}

- (void)setVariant:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXItem.variant")) return;
  coreOf<Core>(self).setVariant(toString(value, "JXItem.variant"));
}

- (NSDecimalNumber*)list_position {
  return toFoundation(coreOf<Core>(self).list_position());
}

- (void)setList_position:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXItem.list_position")) return;
  coreOf<Core>(self).setList_position(toDecimal(value, "JXItem.list_position"));
}

- (NSDecimalNumber*)discount {
  return toFoundation(coreOf<Core>(self).discount());
}

- (void)setDiscount:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXItem.discount")) return;
  coreOf<Core>(self).setDiscount(toDecimal(value, "JXItem.discount"));
}

- (NSDecimalNumber*)quantity {
  return toFoundation(coreOf<Core>(self).quantity());
}

- (void)setQuantity:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXItem.quantity")) return;
  coreOf<Core>(self).setQuantity(toDecimal(value, "JXItem.quantity"));
}

- (NSString*)coupon {
  return toFoundation(coreOf<Core>(self).coupon());
}

- (void)setCoupon:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXItem.coupon")) return;
  coreOf<Core>(self).setCoupon(toString(value, "JXItem.coupon"));
}

- (NSString*)affiliation {
  return toFoundation(coreOf<Core>(self).affiliation());
}

- (void)setAffiliation:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXItem.affiliation")) return;
  coreOf<Core>(self).setAffiliation(toString(value, "JXItem.affiliation"));
}

@end
