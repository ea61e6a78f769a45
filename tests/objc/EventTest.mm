// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEvent.h"

#include "jx/events/ecommerce/JXPurchaseEvent.h"
#import "jx/objc/JXCustomEvent.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/JXProduct.h"
#import "jx/objc/JXPurchaseEvent.h"
#import "jx/objc/JXVideoContentEvent.h"
#import "jx/objc/JXVideoPlaybackEvent.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "tests/objc/ObjectiveCTest.h"

@interface RatedItem : JXItem
@end

@implementation RatedItem
- (NSMutableDictionary*)getJsonObject {
  NSMutableDictionary* const object = [super getJsonObject];
  [object setObject:@"PG" forKey:@"rating"];
  return object;
}
@end

@interface NilItem : JXItem
@end

@implementation NilItem
- (NSMutableDictionary*)getJsonObject {
  return nil;
}
@end

@interface TextItem : JXItem
@end

@implementation TextItem
- (NSMutableDictionary*)getJsonObject {
  return static_cast<id>(@"a string");
}
@end

@interface FailingItem : JXItem
@end

@implementation FailingItem
- (NSMutableDictionary*)getJsonObject {
  @throw @"no price";
}
@end

namespace jx::objc {
namespace {

class ObjectiveCEvent : public test::ObjectiveCTest {
 protected:
  static ::JXItem* item(NSString* identifier) {
    ::JXProduct* const product =
        [[[::JXProduct alloc] initWithProductId:@"p1" withName:@"Film"
                                      withPrice:decimal(@"4.9")] autorelease];
    return [[[::JXItem alloc] initWithItemId:identifier withProduct:product
                                withQuantity:2] autorelease];
  }
  static ::JXPurchaseEvent* purchase(NSArray* items) {
    return [[[::JXPurchaseEvent alloc] initWithId:@"o1"
                                      withRevenue:decimal(@"12.5")
                                        withValue:nil
                                     withCurrency:@"EUR"
                                         withType:nil
                                withPaymentMethod:@"card"
                                       withStatus:nil
                                        withItems:items] autorelease];
  }
};

TEST_F(ObjectiveCEvent, SetsTheFieldsOfItsCppObject) {
  ::JXPurchaseEvent* const event = purchase([NSArray arrayWithObject:item(@"i1")]);
  event.coupon = @"SUMMER";
  const jx::JXPurchaseEvent& core = coreOf<jx::JXPurchaseEvent>(event);
  EXPECT_EQ(core.ID(), JXString("o1"));
  EXPECT_EQ(core.coupon(), JXString("SUMMER"));
  EXPECT_EQ(core.revenue()->toString(), "12.5");
  EXPECT_FALSE(core.value().has_value());
  ASSERT_EQ(core.items().size(), 1u);
  EXPECT_EQ(core.items()[0]->ID(), JXString("i1"));
  EXPECT_EQ(core.items()[0]->product()->price()->toString(), "4.9");
}

TEST_F(ObjectiveCEvent, ReturnsWhatWasSetInCpp) {
  ::JXPurchaseEvent* const event = [[[::JXPurchaseEvent alloc] init] autorelease];
  jx::JXPurchaseEvent& core = coreOf<jx::JXPurchaseEvent>(event);
  core.setStatus("pending");
  core.setTaxAmount(JXDecimal::fromString("0.07"));
  core.items().append(jx::JXItem::initWithItemId_withProduct_withQuantity("i9", nullptr, 3));
  EXPECT_EQ(text(event.status), "pending");
  EXPECT_EQ(text([event.taxAmount description]), "0.07");
  ASSERT_EQ([event.items count], 1u);
  ::JXItem* const first = [event.items objectAtIndex:0];
  EXPECT_EQ(text(first.ID), "i9");
  EXPECT_EQ(first.product, nil);
  EXPECT_EQ([event.items objectAtIndex:0], first);
}

TEST_F(ObjectiveCEvent, ReturnsTheItemsAndTheProductThatWereSet) {
  ::JXItem* const first = item(@"i1");
  ::JXItem* const second = item(@"i2");
  ::JXPurchaseEvent* const event = purchase([NSArray arrayWithObject:first]);
  [event.items addObject:second];
  EXPECT_EQ([event.items objectAtIndex:0], first);
  EXPECT_EQ([event.items objectAtIndex:1], second);
  EXPECT_EQ(event.items, event.items);
  ::JXProduct* const product = first.product;
  EXPECT_EQ(first.product, product);
  first.product = nil;
  EXPECT_EQ(first.product, nil);
  [event.items removeObjectAtIndex:0];
  EXPECT_EQ([event.items objectAtIndex:0], second);
  EXPECT_EQ(coreOf<jx::JXPurchaseEvent>(event).items().size(), 1u);
  event.items = nil;
  EXPECT_EQ([event.items count], 0u);
}

TEST_F(ObjectiveCEvent, CopiesMutableStringsAndArrays) {
  NSMutableArray* const items = [NSMutableArray arrayWithObject:item(@"i1")];
  NSMutableString* const coupon = [NSMutableString stringWithString:@"SUMMER"];
  ::JXPurchaseEvent* const event = purchase(items);
  event.coupon = coupon;
  [items removeAllObjects];
  [coupon setString:@"WINTER"];
  EXPECT_EQ([event.items count], 1u);
  EXPECT_EQ(text(event.coupon), "SUMMER");
}

TEST_F(ObjectiveCEvent, ANilListIsNotWritten) {
  ::JXVideoPlaybackEvent* const event =
      [[[::JXVideoPlaybackEvent alloc] initWithMode:EJXVideoPlaybackMode_START
                                       andSessionId:@"s1"] autorelease];
  EXPECT_TRUE([[[event getJsonObject] objectForKey:@"content_asset_id"] isEqual:[NSArray array]]);
  [event setContentAssetID:nil];
  EXPECT_EQ(event.contentAssetID, nil);
  EXPECT_EQ([[event getJsonObject] objectForKey:@"content_asset_id"], nil);
  [event setContentAssetID:[NSArray arrayWithObject:@"a1"]];
  EXPECT_TRUE([event.contentAssetID isEqual:[NSArray arrayWithObject:@"a1"]]);
}

TEST_F(ObjectiveCEvent, ANilListOfAnInitialiserLeavesTheListEmpty) {
  EXPECT_NE(purchase(nil).items, nil);
  EXPECT_EQ([purchase(nil).items count], 0u);
}

TEST_F(ObjectiveCEvent, AListCanBeSetToItself) {
  ::JXPurchaseEvent* const event = purchase([NSArray arrayWithObject:item(@"i1")]);
  @autoreleasepool {
    [event.items addObject:item(@"i2")];
  }
  [event setItems:event.items];
  ASSERT_EQ([event.items count], 2u);
  EXPECT_EQ(text([[event.items objectAtIndex:1] ID]), "i2");
}

TEST_F(ObjectiveCEvent, ContainsTheJsonOfItemsThatOverrideIt) {
  ::JXPurchaseEvent* const event = purchase([NSArray arrayWithObject:item(@"i1")]);
  RatedItem* const rated = [[[RatedItem alloc] init] autorelease];
  rated.ID = @"i2";
  [event.items addObject:rated];
  NSArray* const items = [[event getJsonObject] objectForKey:@"items"];
  ASSERT_EQ([items count], 2u);
  EXPECT_TRUE([[items objectAtIndex:0] isEqual:[item(@"i1") getJsonObject]]);
  EXPECT_EQ(text([[items objectAtIndex:1] objectForKey:@"id"]), "i2");
  EXPECT_EQ(text([[items objectAtIndex:1] objectForKey:@"rating"]), "PG");
}

TEST_F(ObjectiveCEvent, ItemsWhoseJsonFailsHaveTheirInheritedFields) {
  start();
  ::JXEvent* const event = purchase(nil);
  NSArray* const items = [NSArray
      arrayWithObjects:[[[NilItem alloc] init] autorelease], [[[TextItem alloc] init] autorelease],
                       [[[FailingItem alloc] init] autorelease], item(@"i1"), nil];
  NSArray* const json = [event getItemListAsJson:items];
  ASSERT_EQ([json count], 4u);
  EXPECT_TRUE(
      [[json objectAtIndex:0] isEqual:[[[[::JXItem alloc] init] autorelease] getJsonObject]]);
  EXPECT_TRUE([[json objectAtIndex:1] isEqual:[json objectAtIndex:0]]);
  EXPECT_TRUE([[json objectAtIndex:2] isEqual:[json objectAtIndex:0]]);
  EXPECT_EQ(text([[json objectAtIndex:3] objectForKey:@"id"]), "i1");
  EXPECT_EQ(count({3, "getJsonObject of TextItem failed: it returned no dictionary"}), 1u);
  EXPECT_EQ(count({3, "getJsonObject of NilItem failed: it returned no dictionary"}), 1u);
  EXPECT_EQ(count({3, "getJsonObject of FailingItem failed: no price"}), 1u);
}

TEST_F(ObjectiveCEvent, AWrongClassInAListIsLoggedAndIgnored) {
  start();
  ::JXPurchaseEvent* const event =
      purchase([NSArray arrayWithObjects:item(@"i1"), @"a string", [NSNull null], nil]);
  EXPECT_EQ([event.items count], 1u);
  ASSERT_EQ(linesUpTo(3).size(), 2u);
  EXPECT_NE(linesUpTo(3)[0].message.find("JXECommerceEvent.items: "), std::string::npos);
  EXPECT_NE(linesUpTo(3)[0].message.find(" instead of JXItem; ignored"), std::string::npos);
}

TEST_F(ObjectiveCEvent, AnIndexOutOfRangeIsLoggedAndIgnored) {
  start();
  ::JXPurchaseEvent* const event = purchase(nil);
  [event.items removeObjectAtIndex:7];
  [event.items insertObject:item(@"i1") atIndex:1];
  EXPECT_EQ([event.items objectAtIndex:0], [NSNull null]);
  EXPECT_EQ([event.items count], 0u);
  EXPECT_EQ(linesUpTo(3).size(), 3u);
  EXPECT_EQ(linesUpTo(3)[0].message, "JXECommerceEvent.items: index 7 is out of range; ignored");
}

TEST_F(ObjectiveCEvent, VerifiesLikeCpp) {
  ::JXPurchaseEvent* const event = purchase(nil);
  EXPECT_FALSE([event verifyEvent]);
  EXPECT_NE(text([event firstFailedCondition]), "(nil)");
  [event.items addObject:item(@"i1")];
  event.status = EJXPurchaseStatus_PENDING;
  event.type = @"rent";
  event.value = decimal(@"12.5");
  EXPECT_EQ([event verifyEvent] != NO, coreOf<jx::JXEvent>(event).verifyEvent());
}

TEST_F(ObjectiveCEvent, AnObjectWithoutAnInitialiserIsEmpty) {
  ::JXPurchaseEvent* const event = [[::JXPurchaseEvent alloc] autorelease];
  EXPECT_EQ(text(event.name), "purchase");
  EXPECT_EQ(event.coupon, nil);
  event.coupon = @"SUMMER";
  EXPECT_EQ(text(event.coupon), "SUMMER");
}

TEST_F(ObjectiveCEvent, AnEventThatNeedsANameIsCreatedWithoutOne) {
  const id custom = [[static_cast<id>([::JXCustomEvent class]) alloc] init];
  EXPECT_EQ([custom name], nil);
  EXPECT_FALSE([custom verifyEvent]);
  [custom release];
}

TEST_F(ObjectiveCEvent, AVideoEventIsNamedByItsMode) {
  ::JXVideoContentEvent* const event =
      [[[::JXVideoContentEvent alloc] initWithMode:EJXVideoContentMode_QUARTER_REACHED
                                      andSessionId:@"s1"] autorelease];
  EXPECT_EQ(text(event.name), "video_content_quarter_reached");
  EXPECT_EQ(text(event.videoSessionID), "s1");
  EXPECT_EQ(text(EJXVideoContentMode_toString[EJXVideoContentMode_COMPLETE]),
            "video_content_complete");
}

}  // namespace
}  // namespace jx::objc
