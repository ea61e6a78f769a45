// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "examples/tvos-objc/ShopReporter.h"

#import "tests/objc/ObjectiveCTest.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::objc {
namespace {

class ShopReporterEvents : public test::ObjectiveCTest {
 protected:
  using Names = std::vector<std::string>;

  void SetUp() override {
    ObjectiveCTest::SetUp();
    start();
    const auto disabled = ::EJXDefaultBehaviour_DISABLED_BY_DEFAULT;
    serverSide_ = [[::ServerSide alloc] initWithSiteID:1
                                          andSourceKey:@"key"
                                   andDefaultBehaviour:disabled];
    ::JXProduct* const film =
        [[[::JXProduct alloc] initWithProductId:@"4711"
                                       withName:@"A film"
                                      withPrice:decimal(@"4.99")] autorelease];
    film.currency = @"EUR";
    shop_ = [[ShopReporter alloc] initWithServerSide:serverSide_ film:film];
  }
  void TearDown() override {
    [shop_ release];
    [serverSide_ release];
    ObjectiveCTest::TearDown();
  }

  Names names() const {
    Names names;
    for (const test::Request& request : requests())
      names.push_back(request.body.get("event_name").string().toStdString());
    return names;
  }
  /// Returns the JSON of the entries that the event classes write, without ID, context and user.
  std::string fields(std::size_t index) const {
    JXJsonObject body = requests().at(index).body;
    body.remove("event_id");
    body.remove("context");
    body.remove("user");
    return test::jsonText(body);
  }

  ::ServerSide* serverSide_ = nil;
  ShopReporter* shop_ = nil;
};

TEST_F(ShopReporterEvents, WaitForConsent) {
  [shop_ addToCart];
  [shop_ buyWithOrderID:@"order-1"];
  EXPECT_EQ(names(), Names{});
}

TEST_F(ShopReporterEvents, ReportTheScreenOnceWithTheFirstConsent) {
  [shop_ giveConsent];
  [shop_ withdrawConsent];
  [shop_ giveConsent];
  EXPECT_EQ(names(), (Names{"page_view", "view_item"}));
}

TEST_F(ShopReporterEvents, StopWithTheConsent) {
  [shop_ giveConsent];
  [shop_ withdrawConsent];
  [shop_ addToCart];
  EXPECT_EQ(names(), (Names{"page_view", "view_item"}));
  [shop_ giveConsent];
  [shop_ addToCart];
  EXPECT_EQ(names(), (Names{"page_view", "view_item", "add_to_cart"}));
}

TEST_F(ShopReporterEvents, ReportPageItemCartAndPurchaseInThisOrder) {
  [shop_ giveConsent];
  [shop_ addToCart];
  [shop_ addToCart];
  [shop_ buyWithOrderID:@"order-1"];
  EXPECT_EQ(names(), (Names{"page_view", "view_item", "add_to_cart", "add_to_cart", "purchase"}));
}

TEST_F(ShopReporterEvents, ContainTheFilmAndItsPrice) {
  [shop_ giveConsent];
  [shop_ addToCart];
  const std::string item =
      R"({"id":"4711","quantity":1,"product":{"id":"4711","name":"A film","price":4.99,)"
      R"("currency":"EUR","colors":[]}})";
  EXPECT_EQ(fields(0), R"({"event_name":"page_view","page_name":"A film","page_type":"film"})");
  EXPECT_EQ(fields(1),
            R"({"event_name":"view_item","currency":"EUR","revenue":4.99,"items":[)" + item + "]}");
  EXPECT_EQ(fields(2),
            R"({"event_name":"add_to_cart","currency":"EUR","value":4.99,"items":[)" + item + "]}");
}

TEST_F(ShopReporterEvents, ThePurchaseContainsTheWholeCart) {
  [shop_ giveConsent];
  [shop_ addToCart];
  [shop_ addToCart];
  [shop_ addToCart];
  [shop_ buyWithOrderID:@"order-1"];
  EXPECT_EQ(fields(5),
            R"({"event_name":"purchase","currency":"EUR","id":"order-1","value":14.97,)"
            R"("revenue":14.97,"type":"film","payment_method":"card","status":"in_progress",)"
            R"("items":[{"id":"4711","quantity":3,"product":{"id":"4711","name":"A film",)"
            R"("price":4.99,"currency":"EUR","colors":[]}}]})");
}

TEST_F(ShopReporterEvents, ThePurchaseEmptiesTheCart) {
  [shop_ giveConsent];
  [shop_ buyWithOrderID:@"order-1"];
  EXPECT_EQ(names(), (Names{"page_view", "view_item"})) << "the cart is empty";
  [shop_ addToCart];
  [shop_ buyWithOrderID:@"order-2"];
  [shop_ buyWithOrderID:@"order-3"];
  EXPECT_EQ(names(), (Names{"page_view", "view_item", "add_to_cart", "purchase"}));
}

TEST_F(ShopReporterEvents, LogNothing) {
  [shop_ giveConsent];
  forgetLines();
  [shop_ addToCart];
  [shop_ buyWithOrderID:@"order-1"];
  EXPECT_TRUE(linesUpTo(3).empty());
}

}  // namespace
}  // namespace jx::objc
