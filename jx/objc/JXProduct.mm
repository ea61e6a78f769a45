// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXProduct.h"

#include "jx/events/JXProduct.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXProduct;
using namespace jx::objc;

@implementation JXProduct

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)initWithProductId:(NSString*)productId
                         withName:(NSString*)name
                        withPrice:(NSDecimalNumber*)price {
  return [self
      jx_initWithCore:Core::initWithProductId_withName_withPrice(
                          toString(productId, "JXProduct.ID"), toString(name, "JXProduct.name"),
                          toDecimal(price, "JXProduct.price"))];
}

- (instancetype)init {
  return [super init];
}

- (BOOL)verifyProduct {
  return coreOf<Core>(self).verifyProduct() ? YES : NO;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

- (NSString*)ID {
  return toFoundation(coreOf<Core>(self).ID());
}

- (void)setID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXProduct.ID")) return;
  coreOf<Core>(self).setID(toString(value, "JXProduct.ID"));
}

- (NSString*)name {
  return toFoundation(coreOf<Core>(self).name());
}

- (void)setName:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXProduct.name")) return;
  coreOf<Core>(self).setName(toString(value, "JXProduct.name"));
}

- (NSDecimalNumber*)price {
  return toFoundation(coreOf<Core>(self).price());
}

- (void)setPrice:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXProduct.price")) return;
  coreOf<Core>(self).setPrice(toDecimal(value, "JXProduct.price"));
}

- (NSString*)currency {
  return toFoundation(coreOf<Core>(self).currency());
}

- (void)setCurrency:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXProduct.currency")) return;
  coreOf<Core>(self).setCurrency(toString(value, "JXProduct.currency"));
}

- (NSMutableArray*)categories {
  return fieldArray(self, coreOf<Core>(self).categories(), "JXProduct.categories");
}

- (void)setCategories:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setCategories, value, "JXProduct.categories");
}

- (NSString*)brand {
  return toFoundation(coreOf<Core>(self).brand());
}

- (void)setBrand:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXProduct.brand")) return;
  coreOf<Core>(self).setBrand(toString(value, "JXProduct.brand"));
}

- (NSMutableArray*)colors {
  return fieldArray(self, coreOf<Core>(self).colors(), "JXProduct.colors");
}

- (void)setColors:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setColors, value, "JXProduct.colors");
}

- (NSString*)size {
  return toFoundation(coreOf<Core>(self).size());
}

- (void)setSize:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXProduct.size")) return;
  coreOf<Core>(self).setSize(toString(value, "JXProduct.size"));
}

@end
