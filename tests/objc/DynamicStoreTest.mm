// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXDynamicStore.h"

#import "jx/objc/JXEvent.h"
#import "jx/objc/ServerSide.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "tests/objc/ObjectiveCTest.h"

namespace jx::objc {
namespace {

class ObjectiveCStore : public test::ObjectiveCTest {
 protected:
  static ::JXDynamicStore* store() { return [[[::JXDynamicStore alloc] init] autorelease]; }
  ::ServerSide* create() {
    start();
    return [[[::ServerSide alloc] initWithSiteID:1234 andSourceKey:@"key"] autorelease];
  }
};

TEST_F(ObjectiveCStore, SetsReturnsAndRemovesValues) {
  const id<IJXDynamicStore> values = store();
  [values addData:@"a" withValue:@"x"];
  [values addData:@"b" withValue:[NSArray arrayWithObject:decimal(@"0.1")]];
  EXPECT_EQ(text([values getData:@"a"]), "x");
  EXPECT_TRUE([[values getData:@"b"] isEqual:[NSArray arrayWithObject:decimal(@"0.1")]]);
  EXPECT_EQ(text([values removeData:@"a"]), "x");
  EXPECT_EQ([values getData:@"a"], nil);
  EXPECT_EQ([values removeData:@"a"], nil);
}

TEST_F(ObjectiveCStore, IgnoresNilKeysAndRemovesTheKeyOfANilValue) {
  ::JXDynamicStore* const values = store();
  [values addData:nil withValue:@"x"];
  [values addData:@"a" withValue:@"x"];
  [values addData:@"a" withValue:nil];
  EXPECT_EQ([values getData:nil], nil);
  EXPECT_EQ([values removeData:nil], nil);
  EXPECT_TRUE(coreStore(values)->isEmpty());
}

TEST_F(ObjectiveCStore, IgnoresValuesThatJsonDoesNotHave) {
  start();
  ::JXDynamicStore* const values = store();
  [values addData:@"a" withValue:@"x"];
  [values addData:@"a" withValue:[NSDate date]];
  EXPECT_EQ(text([values getData:@"a"]), "x");
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCStore, AddsAllPairsAndRemovesThem) {
  start();
  ::JXDynamicStore* const values = store();
  [values addData:@"a" withValue:@"x"];
  [values addData:@"b" withValue:@"x"];
  ::JXDynamicStore* const other = store();
  [other addData:@"b" withValue:@"y"];
  [values addData:other];
  [values addData:values];
  [values addData:[NSDictionary dictionaryWithObject:decimal(@"0.1") forKey:@"c"]];
  EXPECT_EQ(text([values getData:@"a"]), "x");
  EXPECT_EQ(text([values getData:@"b"]), "y");
  EXPECT_TRUE([[values getData:@"c"] isEqual:decimal(@"0.1")]);
  [values addData:nil];
  EXPECT_TRUE(linesUpTo(3).empty());
  [values addData:@"a string"];
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_EQ(coreStore(values)->entries().size(), 3u);
  [values clearData];
  EXPECT_TRUE(coreStore(values)->isEmpty());
  EXPECT_EQ(text([other getData:@"b"]), "y");
}

TEST_F(ObjectiveCStore, CopiesWhatIsAdded) {
  ::JXDynamicStore* const values = store();
  NSMutableString* const value = [NSMutableString stringWithString:@"x"];
  [values addData:@"a" withValue:value];
  [value setString:@"y"];
  EXPECT_EQ(text([values getData:@"a"]), "x");
}

TEST_F(ObjectiveCStore, AnObjectWithoutAnInitialiserIsEmpty) {
  ::JXDynamicStore* const values = [[::JXDynamicStore alloc] autorelease];
  EXPECT_EQ([values getData:@"a"], nil);
  [values addData:@"a" withValue:@"x"];
  EXPECT_EQ(text([values getData:@"a"]), "x");
}

TEST_F(ObjectiveCStore, AddsItsPairsToAnEvent) {
  start();
  ::JXDynamicStore* const values = store();
  [values addData:@"screen" withValue:@"home"];
  ::JXEvent* const event = [[[::JXEvent alloc] init] autorelease];
  [event addAdditionalProperty:values];
  [event addAdditionalProperty:[NSDictionary dictionaryWithObject:@"b" forKey:@"a"]];
  [event addAdditionalProperty:nil];
  [event addAdditionalProperty:@"a string"];
  EXPECT_TRUE([[event getAdditionalProperties]
      isEqual:([NSDictionary dictionaryWithObjectsAndKeys:@"home", @"screen", @"b", @"a", nil])]);
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCStore, HoldsThePermanentData) {
  ::ServerSide* const serverSide = create();
  [serverSide addPermanentData:@"a" withValue:@"x"];
  EXPECT_EQ(text([serverSide.permanentStore getData:@"a"]), "x");
  EXPECT_TRUE([serverSide.permanentStore isEqual:serverSide.permanentStore]);
  ::JXDynamicStore* const values = store();
  [values addData:@"b" withValue:@"y"];
  serverSide.permanentStore = values;
  EXPECT_TRUE([serverSide.permanentStore isEqual:values]);
  EXPECT_EQ([serverSide getPermanentData:@"a"], nil);
  EXPECT_EQ(text([serverSide getPermanentData:@"b"]), "y");
}

TEST_F(ObjectiveCStore, AWrongClassDoesNotReplaceThePermanentData) {
  ::ServerSide* const serverSide = create();
  [serverSide addPermanentData:@"a" withValue:@"x"];
  forgetLines();
  serverSide.permanentStore = static_cast<id>(@"a string");
  [serverSide addPermanentData:@"a" withValue:[NSDate date]];
  EXPECT_EQ(text([serverSide getPermanentData:@"a"]), "x");
  EXPECT_EQ(linesUpTo(3).size(), 2u);
  serverSide.permanentStore = nil;
  [serverSide addPermanentData:@"a" withValue:@"x"];
  EXPECT_EQ([serverSide getPermanentData:@"a"], nil);
}

}  // namespace
}  // namespace jx::objc
