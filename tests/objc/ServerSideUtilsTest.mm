// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXServerSideUtils.h"

#include "jx/core/JXCoreConfiguration.h"
#import "jx/objc/JXCoreInitialisation.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/JXProduct.h"
#import "jx/objc/JXPurchaseEvent.h"
#import "jx/objc/JXServerSideInitialisation.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCUtils : public test::NotificationTest {};

TEST_F(ObjectiveCUtils, ReturnsTheParametersOfAnEvent) {
  ::JXProduct* const product = make<::JXProduct>();
  product.ID = @"p1";
  ::JXItem* const item = make<::JXItem>();
  item.ID = @"i1";
  item.product = product;
  ::JXPurchaseEvent* const event = make<::JXPurchaseEvent>();
  event.revenue = decimal(@"12.5");
  [event.items addObject:item];
  NSDictionary* const parameters = [::JXServerSideUtils eventPropertiesToDictionary:event];
  EXPECT_TRUE([[parameters objectForKey:@"revenue"] isEqual:decimal(@"12.5")]);
  EXPECT_EQ([parameters objectForKey:@"context"], nil);
  NSDictionary* const flat = [[parameters objectForKey:@"items"] objectAtIndex:0];
  EXPECT_EQ([flat objectForKey:@"product"], nil);
  EXPECT_TRUE([[flat objectForKey:@"index"] isEqual:[NSNumber numberWithInt:0]]);
  EXPECT_EQ([::JXServerSideUtils eventPropertiesToDictionary:nil], nil);
}

TEST_F(ObjectiveCUtils, FlattensItemsAndProducts) {
  NSDictionary* const product = [NSDictionary dictionaryWithObject:@"p1" forKey:@"id"];
  NSDictionary* const item = [NSDictionary dictionaryWithObject:product forKey:@"product"];
  NSArray* const flat = [::JXServerSideUtils
      itemsToDict:[NSDictionary dictionaryWithObject:[NSArray arrayWithObject:item]
                                              forKey:@"items"]];
  ASSERT_EQ([flat count], 1u);
  EXPECT_EQ([[flat objectAtIndex:0] objectForKey:@"product"], nil);
  EXPECT_EQ([[::JXServerSideUtils itemsToDict:nil] count], 0u);
  NSMutableDictionary* const target = [NSMutableDictionary dictionaryWithDictionary:item];
  [::JXServerSideUtils productToDict:product into:target];
  EXPECT_EQ([target objectForKey:@"product"], nil);
  EXPECT_NE([target count], 0u);
  [::JXServerSideUtils productToDict:product into:nil];
  // Entries of the target that JSON does not have are kept.
  NSDate* const date = [NSDate date];
  [target setObject:date forKey:@"when"];
  [::JXServerSideUtils productToDict:product into:target];
  EXPECT_EQ([target objectForKey:@"when"], date);
}

TEST_F(ObjectiveCUtils, StoresADictionaryAsItsJson) {
  start();
  NSMutableDictionary* const dict = [NSMutableDictionary dictionary];
  [::JXServerSideUtils setProperty:[NSDictionary dictionaryWithObject:@"b" forKey:@"a"]
                            forKey:@"json"
                intoPropertiesDict:dict];
  [::JXServerSideUtils setProperty:@"x" forKey:@"string" intoPropertiesDict:dict];
  [::JXServerSideUtils setProperty:nil forKey:@"nil" intoPropertiesDict:dict];
  [::JXServerSideUtils setProperty:@"x" forKey:nil intoPropertiesDict:dict];
  EXPECT_EQ([dict count], 2u);
  EXPECT_EQ(text([dict objectForKey:@"json"]), "{\"a\":\"b\"}");
  EXPECT_EQ(text([dict objectForKey:@"string"]), "x");
  [::JXServerSideUtils setProperty:@"x" forKey:@"a" intoPropertiesDict:static_cast<id>(@"no")];
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCUtils, StartsTheCore) {
  start();
  EXPECT_TRUE(jx::JXCoreConfiguration::set(jx::JXCoreConfiguration::current()));
  EXPECT_NE(make<::JXCoreInitialisation>(), nil);
  EXPECT_FALSE(jx::JXCoreConfiguration::set(jx::JXCoreConfiguration::current()));
}

TEST_F(ObjectiveCUtils, StartsTheLibrary) {
  start();
  EXPECT_NE(make<::JXServerSideInitialisation>(), nil);
  EXPECT_FALSE(jx::JXCoreConfiguration::set(jx::JXCoreConfiguration::current()));
}

}  // namespace
}  // namespace jx::objc
