// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <atomic>
#include <limits>
#include <thread>

#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#import "jx/objc/JXServerSide.h"
#import "jx/objc/internal/JXConversion.h"
#import "tests/objc/ObjectiveCTest.h"

static std::atomic<int> living{0};

// Defines a class that counts its objects.
#define JX_COUNTED_CLASS(Name, Base) \
  @interface Name : Base             \
  @end                               \
  @implementation Name               \
  -(instancetype)init {              \
    self = [super init];             \
    if (self != nil) ++living;       \
    return self;                     \
  }                                  \
  -(void)dealloc {                   \
    --living;                        \
    [super dealloc];                 \
  }                                  \
  @end

JX_COUNTED_CLASS(CountedEvent, JXPurchaseEvent)
JX_COUNTED_CLASS(CountedItem, JXItem)
JX_COUNTED_CLASS(CountedAnalytics, NSObject)

namespace jx::objc {
namespace {

class ObjectiveCBadInput : public test::ObjectiveCTest {
 protected:
  ::ServerSide* create() {
    start();
    return [[[::ServerSide alloc] initWithSiteID:1 andSourceKey:@"key"] autorelease];
  }
  // Calls `use` with an object of each class and each of its fields.
  template <typename Use>
  static void forEachField(const Use& use) {
    std::vector<const JXBlockClass*> types(allEventClasses().begin(), allEventClasses().end());
    types.push_back(&JXItem::blockClass());
    types.push_back(&JXProduct::blockClass());
    for (const JXBlockClass* type : types) {
      const Class objectClass = NSClassFromString(toFoundation(JXString(type->className)));
      ASSERT_NE(objectClass, Nil) << type->className;
      const id object = [[[objectClass alloc] init] autorelease];
      for (const JXBlockClass* block = type; block != nullptr; block = block->base) {
        for (const JXFieldTable* table : {block->written, block->unwritten}) {
          if (table == nullptr) continue;
          for (const JXFieldInfo& field : table->fields())
            use(object, field);
        }
      }
    }
  }
  static bool isObject(const JXFieldInfo& field) {
    return field.kind != JXFieldKind::Boolean && field.kind != JXFieldKind::Enumeration;
  }
  static id validValue(const JXFieldInfo& field) {
    switch (field.kind) {
      case JXFieldKind::Number:
        return decimal(@"1.5");
      case JXFieldKind::Product:
        return [[[::JXProduct alloc] init] autorelease];
      case JXFieldKind::Items:
        return [NSArray arrayWithObject:[[[::JXItem alloc] init] autorelease]];
      case JXFieldKind::Strings:
      case JXFieldKind::NumberedStrings:
      case JXFieldKind::Values:
        return [NSArray arrayWithObject:@"a"];
      default:
        return @"a";
    }
  }
  static bool isList(const JXFieldInfo& field) {
    return field.kind == JXFieldKind::Strings || field.kind == JXFieldKind::NumberedStrings ||
           field.kind == JXFieldKind::Values || field.kind == JXFieldKind::Items;
  }
};

TEST_F(ObjectiveCBadInput, AnItemIgnoresAProductOfAnotherClass) {
  start();
  for (const id product : {static_cast<id>(@"film"), static_cast<id>([NSNull null]),
                           static_cast<id>([[[::JXPurchaseEvent alloc] init] autorelease])}) {
    forgetLines();
    ::JXItem* const item = [[[::JXItem alloc] initWithItemId:@"1"
                                                 withProduct:product
                                                withQuantity:1] autorelease];
    EXPECT_EQ(item.product, nil);
    EXPECT_EQ(text(item.ID), "1");
    EXPECT_EQ([[item getJsonObject] objectForKey:@"product"], nil);
    EXPECT_EQ(linesUpTo(3).size(), 1u);
  }
}

TEST_F(ObjectiveCBadInput, EveryFieldAcceptsNil) {
  start();
  int fields = 0;
  forEachField([&](id object, const JXFieldInfo& field) {
    if (!isObject(field)) return;
    NSString* const name = toFoundation(JXString(field.property));
    forgetLines();
    [object setValue:nil forKey:name];
    EXPECT_TRUE(linesUpTo(3).empty()) << field.property;
    EXPECT_EQ([object valueForKey:name], nil) << field.property;
    ++fields;
  });
  EXPECT_GT(fields, 200);
}

TEST_F(ObjectiveCBadInput, EveryFieldLogsAndIgnoresAWrongClass) {
  start();
  forEachField([&](id object, const JXFieldInfo& field) {
    if (!isObject(field)) return;
    NSString* const name = toFoundation(JXString(field.property));
    [object setValue:validValue(field) forKey:name];
    const id before = [object valueForKey:name];
    ASSERT_NE(before, nil) << field.property;
    forgetLines();
    [object setValue:[NSDate date] forKey:name];
    EXPECT_EQ(linesUpTo(3).size(), 1u) << field.property;
    const id after = [object valueForKey:name];
    EXPECT_TRUE([after isEqual:before]) << field.property;
    EXPECT_TRUE(!isList(field) || [after count] == 1) << field.property;
  });
}

TEST_F(ObjectiveCBadInput, AnAmountThatIsNoNumberIsNotWritten) {
  ::ServerSide* const serverSide = create();
  for (NSNumber* const number :
       {static_cast<NSNumber*>([NSDecimalNumber notANumber]), [NSNumber numberWithDouble:NAN],
        [NSNumber numberWithDouble:std::numeric_limits<double>::infinity()]}) {
    ::JXPurchaseEvent* const event = [[[::JXPurchaseEvent alloc] init] autorelease];
    [event setValue:number forKey:@"revenue"];
    forgetLines();
    [serverSide execute:event];
    EXPECT_FALSE(requests().back().body.contains("revenue"));
    EXPECT_EQ(linesUpTo(3).size(), 1u);
  }
}

TEST_F(ObjectiveCBadInput, ReleasesEventsItemsAndTheAnalyticsObject) {
  start();
  NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
  {
    ::ServerSide* const serverSide =
        [[::ServerSide alloc] initWithSiteID:1
                                andSourceKey:@"key"
                         andFirebaseInstance:[[[CountedAnalytics alloc] init] autorelease]];
    CountedEvent* const event = [[CountedEvent alloc] init];
    CountedItem* const item = [[CountedItem alloc] init];
    [event.items addObject:item];
    EXPECT_EQ([event.items objectAtIndex:0], item);
    item.product = item.product;
    [serverSide execute:event];
    [event getJsonObject];
    EXPECT_EQ(living, 3);
    [item release];
    [event release];
    [serverSide release];
  }
  [pool release];
  EXPECT_EQ(living, 0);
}

TEST_F(ObjectiveCBadInput, EventsAreExecutedAfterAnotherServerSideIsReleased) {
  ::ServerSide* const kept = create();
  NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
  [[[[::ServerSide alloc] initWithSiteID:2 andSourceKey:@"other"] autorelease] waitForUserAgent];
  [pool release];
  ::JXPurchaseEvent* const event = [[[::JXPurchaseEvent alloc] init] autorelease];
  [kept execute:event];
  [kept execute:event];
  EXPECT_EQ(requests().size(), 2u);
}

TEST_F(ObjectiveCBadInput, SeveralThreadsExecuteEventsOfTheirOwn) {
  configuration.storageFolder = JXString(storage().path());
  ::ServerSide* const serverSide = create();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([serverSide] {
      for (int j = 0; j < 50; ++j) {
        NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
        ::JXPurchaseEvent* const event = [[[::JXPurchaseEvent alloc] init] autorelease];
        event.coupon = @"SUMMER";
        [event.items addObject:[[[::JXItem alloc] init] autorelease]];
        [serverSide execute:event];
        [pool release];
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(requests().size(), 200u);
}

}  // namespace
}  // namespace jx::objc
