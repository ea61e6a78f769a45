// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Values that cannot be written are logged when the event is executed.

#include <gmock/gmock.h>

#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXItem.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "jx/events/video/JXVideoAdEvent.h"
#include "jx/events/video/JXVideoContentEvent.h"
#include "jx/events/video/JXVideoPlaybackEvent.h"
#include "jx/events/video/JXVideoSettingEvent.h"
#include "jx/facade/JXPostData.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Omissions : public ServerSideFixture {
 protected:
  Omissions() : serverSide_(make()) { forgetLines(); }
  std::vector<LogLine> logOf(const std::shared_ptr<JXEvent>& event) {
    serverSide_->execute(event);
    return linesUpTo(3);
  }

  std::shared_ptr<ServerSide> serverSide_;
};

std::shared_ptr<JXItem> itemPriced(const JXDecimal& price) {
  return JXItem::initWithItemId_withProduct_withQuantity(
      "1", JXProduct::initWithProductId_withName_withPrice("P", "lamp", price), 1);
}

// An application's event class that serialises itself through its base class.
class OwnCartEvent final : public JXCustomEvent {
 public:
  OwnCartEvent() { setName("own"); }
  JXJsonObject getJsonObject() const override { return cart->getJsonObject(); }

  std::shared_ptr<JXViewCartEvent> cart = JXViewCartEvent::init();
};

// Executes another event while it is serialised.
class NestedEvent final : public JXCustomEvent {
 public:
  JXJsonObject getJsonObject() const override {
    serverSide->execute(inner);
    return outer->getJsonObject();
  }
  std::shared_ptr<ServerSide> serverSide;
  std::shared_ptr<JXEvent> inner;
  std::shared_ptr<JXEvent> outer;
};

TEST_F(Omissions, LogsNaNAmountWithEventAndKey) {
  const auto event = JXViewCartEvent::init();
  event->setValue(JXDecimal::fromString("a lot"));
  EXPECT_THAT(logOf(event), ElementsAre(LogLine{3, "view_cart: value is NaN; omitted"}));
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_FALSE(requests()[0].body.contains("value"));
}

TEST_F(Omissions, LogsNaNOfItemAndProductOncePerKey) {
  const auto first = itemPriced(JXDecimal::nan());
  first->setQuantity(JXDecimal::nan());
  const auto second = itemPriced(JXDecimal::nan());
  second->addAdditionalProperty_withStringValue("shelf", "top");
  const auto event = JXViewCartEvent::initWithItems({first, second});
  EXPECT_THAT(logOf(event), ElementsAre(LogLine{3, "view_cart: quantity is NaN; omitted"},
                                        LogLine{3, "view_cart: price is NaN; omitted"}));
}

TEST_F(Omissions, LogsAgainForTheNextExecution) {
  const auto event = JXViewCartEvent::init();
  event->setValue(JXDecimal::nan());
  logOf(event);
  EXPECT_EQ(logOf(event).size(), 2u);
}

TEST_F(Omissions, LogsOnceIfAFieldKeyRequiresTheJsonTree) {
  const auto event = JXViewCartEvent::init();
  event->addAdditionalParameter_withValue("value", "extra");
  event->setValue(JXDecimal::nan());
  EXPECT_THAT(logOf(event), ElementsAre(LogLine{3, "view_cart: value is NaN; omitted"}));
}

TEST_F(Omissions, LogsOnceIfAnOverrideSerialisesItself) {
  const auto event = std::make_shared<OwnCartEvent>();
  event->cart->setValue(JXDecimal::nan());
  EXPECT_THAT(logOf(event), ElementsAre(LogLine{3, "own: value is NaN; omitted"}));
}

TEST_F(Omissions, NamesEachOfTwoNestedEvents) {
  const auto inner = JXViewCartEvent::init();
  inner->setValue(JXDecimal::nan());
  const auto event = std::make_shared<NestedEvent>();
  event->setName("nested");
  event->serverSide = serverSide_;
  event->inner = inner;
  event->outer = inner;
  EXPECT_THAT(logOf(event), ElementsAre(LogLine{3, "view_cart: value is NaN; omitted"},
                                        LogLine{3, "nested: value is NaN; omitted"}));
  event->inner = nullptr;
  event->outer = nullptr;
}

TEST_F(Omissions, LogsAdTypeAndLoadTypeOutsideTheirEnumeration) {
  const auto event = JXVideoAdEvent::initWithMode_andSessionId(EJXVideoAdMode_START, "s");
  event->setAdType(static_cast<EJXAdType>(3));
  event->setLoadType(static_cast<EJXAdLoadType>(-1));
  EXPECT_THAT(
      logOf(event),
      ElementsAre(LogLine{3, "video_ad_start: ad_type is outside its enumeration; omitted"},
                  LogLine{3, "video_ad_start: load_type is outside its enumeration; omitted"}));
  EXPECT_FALSE(requests()[0].body.contains("ad_type"));
  EXPECT_FALSE(requests()[0].body.contains("load_type"));
}

TEST_F(Omissions, LogsModeOutsideItsEnumerationOnce) {
  const auto event =
      JXVideoPlaybackEvent::initWithMode_andSessionId(static_cast<EJXVideoPlaybackMode>(9), "s");
  EXPECT_THAT(logOf(event),
              ElementsAre(LogLine{3,
                                  "JXVideoPlaybackEvent: mode 9 is outside its enumeration; "
                                  "event has no name"}));
  EXPECT_FALSE(requests()[0].body.contains("event_name"));
}

TEST_F(Omissions, LogsModeOutsideTheEnumerationOfEachClass) {
  JXVideoAdEvent::initWithMode_andSessionId(static_cast<EJXVideoAdMode>(-1), "s");
  JXVideoContentEvent::initWithMode_andSessionId(static_cast<EJXVideoContentMode>(1000), "s");
  JXVideoSettingEvent::initWithMode_andSessionId(static_cast<EJXVideoSettingMode>(1000), "s");
  const std::string end = " is outside its enumeration; event has no name";
  EXPECT_THAT(lines(), ElementsAre(LogLine{3, "JXVideoAdEvent: mode -1" + end},
                                   LogLine{3, "JXVideoContentEvent: mode 1000" + end},
                                   LogLine{3, "JXVideoSettingEvent: mode 1000" + end}));
}

TEST_F(Omissions, NamesTheClassOfAnEventWithoutName) {
  const auto event = JXVideoAdEvent::initWithMode_andSessionId(EJXVideoAdMode_START, "s");
  event->setName(nullptr);
  event->setAdQuartile(JXDecimal::nan());
  EXPECT_THAT(logOf(event), ElementsAre(LogLine{3, "JXVideoAdEvent: ad_quartile is NaN; omitted"}));
}

TEST_F(Omissions, LogsNullCategoryWithItsNumber) {
  const auto item = itemPriced(5);
  item->product()->setCategories({"home", nullptr, "light"});
  EXPECT_THAT(logOf(JXViewCartEvent::initWithItems({item})),
              ElementsAre(LogLine{3, "view_cart: category_2 is null; skipped"}));
  const JXJsonObject product =
      inside(requests()[0].body.get("items").array().at(0).object(), {"product"});
  EXPECT_EQ(product.get("category_3").string(), JXString("light"));
  EXPECT_FALSE(product.contains("category_2"));
}

TEST_F(Omissions, LogsNullColorsOnce) {
  const auto item = itemPriced(5);
  item->product()->setColors({nullptr, "red", nullptr});
  EXPECT_THAT(logOf(JXViewCartEvent::initWithItems({item})),
              ElementsAre(LogLine{3, "view_cart: colors contains a null element; skipped"}));
}

TEST_F(Omissions, DoNotLogOutsideOfExecute) {
  const auto item = itemPriced(JXDecimal::nan());
  item->product()->setCategories({nullptr});
  const auto cart = JXViewCartEvent::initWithItems({item});
  cart->setValue(JXDecimal::nan());
  cart->verifyEvent();
  cart->firstFailedCondition();
  item->verifyItem();
  cart->getJsonObject();
  JXPostData::getPostParameters_withServerSideState(*cart, EJXServerSideState_ENABLED);
  const auto ad = JXVideoAdEvent::initWithMode_andSessionId(EJXVideoAdMode_START, "s");
  ad->setAdType(static_cast<EJXAdType>(3));
  ad->verifyEvent();
  ad->getJsonObject();
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(Omissions, DoNotLogForACompleteEvent) {
  const auto item = itemPriced(5);
  item->product()->setCategories({"home"});
  item->product()->setColors({"red"});
  const auto event = JXViewCartEvent::initWithItems({item});
  event->setValue(5);
  EXPECT_THAT(logOf(event), IsEmpty());
}

}  // namespace
}  // namespace jx::test
