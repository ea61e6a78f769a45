// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// JXEvent, JXCustomEvent and JXECommerceEvent.

#include "jx/events/JXEvent.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/events/JXItem.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class EventBase : public ServerSideFixture {
 protected:
  EventBase() { start(); }
  static std::string compactJson(const JXEvent& event) {
    return JXJsonWriter::write(event.getJsonObject(), JXJsonStyle::Compact).text;
  }
};

// Has a getJsonObject like an item, but is not an item.
class Sticker {
 public:
  JXJsonObject getJsonObject() const {
    JXJsonObject object;
    object.set("sticker", true);
    return object;
  }
};

TEST_F(EventBase, WritesOnlyTheContextWithItsEventIDByDefault) {
  EXPECT_EQ(compactJson(*JXEvent::init()),
            R"({"context":{"event_id":"00000000-0000-4000-8000-000000000001"}})");
}

TEST_F(EventBase, WritesAdditionalPropertiesThenNamePageAndContext) {
  const auto event = JXEvent::init();
  event->setPageType("hub");
  event->setPageName("home");
  event->setName("page");
  event->addAdditionalParameter_withValue("extra", "x");
  EXPECT_EQ(compactJson(*event),
            R"({"extra":"x","event_name":"page","page_name":"home","page_type":"hub",)"
            R"("context":{"event_id":"00000000-0000-4000-8000-000000000001"}})");
}

TEST_F(EventBase, OverridesAnAdditionalPageNameOnlyIfSet) {
  const auto event = JXEvent::init();
  event->addAdditionalParameter_withValue("page_name", "extra");
  event->addAdditionalParameter_withValue("page_type", "extra");
  EXPECT_EQ(event->getJsonObject().get("page_name").string(), JXString("extra"));
  EXPECT_EQ(event->getJsonObject().get("page_type").string(), JXString("extra"));
  event->setPageName("own");
  event->setPageType("");
  EXPECT_EQ(event->getJsonObject().get("page_name").string(), JXString("own"));
  EXPECT_EQ(event->getJsonObject().get("page_type").string(), JXString("")) << "empty is a value";
}

TEST_F(EventBase, ReplacesOrRemovesAnAdditionalEventName) {
  const auto event = JXEvent::init();
  event->addAdditionalParameter_withValue("event_name", "extra");
  EXPECT_FALSE(event->getJsonObject().contains("event_name"));
  event->setName("own");
  EXPECT_EQ(event->getJsonObject().get("event_name").string(), JXString("own"));
  event->setName("");
  EXPECT_EQ(event->getJsonObject().get("event_name").string(), JXString(""));
  EXPECT_EQ(event->getAdditionalProperties().get("event_name").string(), JXString("extra"))
      << "the additional properties stay unchanged";
}

TEST_F(EventBase, ReplacesAnAdditionalContext) {
  const auto event = JXEvent::init();
  JXJsonObject forged;
  forged.set("device", "forged");
  event->addAdditionalParameter_forJsonDict("context", forged);
  EXPECT_EQ(compactJson(*event),
            R"({"context":{"event_id":"00000000-0000-4000-8000-000000000001"}})");
  EXPECT_FALSE(forged.contains("event_id"));
}

TEST_F(EventBase, ReturnsANewObjectAndEventIDOnEachCall) {
  const auto event = JXEvent::init();
  JXJsonObject first = event->getJsonObject();
  const JXJsonObject second = event->getJsonObject();
  EXPECT_NE(inside(first, {"context"}).get("event_id").string(),
            inside(second, {"context"}).get("event_id").string());
  first.set("stray", true);
  EXPECT_FALSE(event->getJsonObject().contains("stray"));
  EXPECT_FALSE(event->getAdditionalProperties().contains("stray"));
}

TEST_F(EventBase, ReturnsAContextThatCanBeExtended) {
  JXJsonObject block = JXEvent::init()->getJsonObject();
  block.get(JXE_CONTEXT).object().set("later", true);
  EXPECT_TRUE(inside(block, {"context"}).get("later").boolValue());
}

TEST_F(EventBase, StoresParametersAsAdditionalProperties) {
  const auto event = JXEvent::init();
  event->addAdditionalParameter_withValue("text", "t");
  JXJsonObject nested;
  event->addAdditionalParameter_forJsonDict("object", nested);
  nested.set("later", true);
  JXJsonObject more;
  more.set("number", JXJsonValue::numberFromString("1.50"));
  more.set("text", "replaced");
  event->addAdditionalParameter(more);
  EXPECT_EQ(JXJsonWriter::write(event->getAdditionalProperties(), JXJsonStyle::Compact).text,
            R"({"text":"replaced","object":{"later":true},"number":1.50})");
}

TEST_F(EventBase, IgnoresNullParameters) {
  const auto event = JXEvent::init();
  event->addAdditionalParameter_withValue(nullptr, "v");
  event->addAdditionalParameter_withValue("k", nullptr);
  event->addAdditionalParameter_forJsonDict(nullptr, JXJsonObject());
  event->addAdditionalParameter_forJsonDict("k", nullptr);
  event->addAdditionalParameter(nullptr);
  event->addAdditionalParameter(event->getAdditionalProperties());
  EXPECT_EQ(event->getAdditionalProperties().size(), 0u);
  event->addAdditionalParameter_withValue("", "v");
  EXPECT_EQ(event->getAdditionalProperties().get("").string(), JXString("v"));
}

TEST_F(EventBase, IsAlwaysInvalid) {
  const auto event = JXEvent::init();
  EXPECT_FALSE(event->verifyEvent());
  event->setName("n");
  event->setPageName("p");
  event->setPageType("t");
  EXPECT_FALSE(event->verifyEvent());
  EXPECT_TRUE(event->firstFailedCondition().testString());
  EXPECT_TRUE(lines().empty()) << "validation logs nothing";
}

TEST_F(EventBase, ListsItemsInOrder) {
  JXList<std::shared_ptr<JXItem>> items;
  for (const char* id : {"b", "a", "c"}) {
    const auto item = JXItem::init();
    item->setID(id);
    items.append(item);
  }
  const JXJsonArray array = JXEvent::getItemListAsJson(items);
  ASSERT_EQ(array.size(), 3u);
  EXPECT_EQ(array.at(0).object().get("id").string(), JXString("b"));
  EXPECT_EQ(array.at(1).object().get("id").string(), JXString("a"));
  EXPECT_EQ(array.at(2).object().get("id").string(), JXString("c"));
}

TEST_F(EventBase, WritesAnEmptyOrNullItemListAsAnEmptyArray) {
  using Items = JXList<std::shared_ptr<JXItem>>;
  for (const Items& items : {Items(), Items(nullptr)}) {
    const JXJsonArray array = JXEvent::getItemListAsJson(items);
    EXPECT_TRUE(array.isPresent());
    EXPECT_EQ(array.size(), 0u);
  }
}

TEST_F(EventBase, SkipsANullElementWithALogMessage) {
  const JXList<std::shared_ptr<JXItem>> items{JXItem::init(), nullptr, JXItem::init()};
  EXPECT_EQ(JXEvent::getItemListAsJson(items).size(), 2u);
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(EventBase, ListsAnyObjectsWithGetJsonObject) {
  const JXList<std::shared_ptr<Sticker>> stickers{std::make_shared<Sticker>()};
  EXPECT_TRUE(JXEvent::getItemListAsJson(stickers).at(0).object().get("sticker").boolValue());
  const JXList<std::shared_ptr<JXProduct>> products{JXProduct::init()};
  EXPECT_EQ(JXEvent::getItemListAsJson(products).size(), 1u);
}

TEST_F(EventBase, CustomEventHasTheApplicationsName) {
  const auto event = JXCustomEvent::initWithName("quiz");
  EXPECT_EQ(event->name(), JXString("quiz"));
  EXPECT_EQ(
      compactJson(*event),
      R"({"event_name":"quiz","context":{"event_id":"00000000-0000-4000-8000-000000000001"}})");
}

TEST_F(EventBase, CustomEventRequiresANonEmptyName) {
  EXPECT_TRUE(JXCustomEvent::initWithName("q")->verifyEvent());
  EXPECT_TRUE(JXCustomEvent::initWithName(" ")->verifyEvent()) << "one character is enough";
  EXPECT_FALSE(JXCustomEvent::initWithName("")->verifyEvent());
  EXPECT_FALSE(JXCustomEvent::initWithName(nullptr)->verifyEvent());
  const auto event = JXCustomEvent::initWithName("q");
  EXPECT_FALSE(event->firstFailedCondition().isPresent());
  event->setName(nullptr);
  EXPECT_EQ(event->firstFailedCondition(), JXString("name must be a non-empty string"));
}

TEST_F(EventBase, ECommerceEventIsAlwaysValidAndHasItsOwnEmptyList) {
  const auto event = JXECommerceEvent::init();
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_TRUE(event->items().isPresent());
  EXPECT_EQ(event->items().size(), 0u);
  EXPECT_FALSE(event->currency().isPresent());
  event->items().append(JXItem::init());
  EXPECT_EQ(event->items().size(), 1u) << "the event owns the list";
  EXPECT_EQ(JXECommerceEvent::init()->items().size(), 0u) << "events do not share the list";
  event->setItems(nullptr);
  EXPECT_FALSE(event->items().isPresent());
  EXPECT_TRUE(event->verifyEvent());
}

TEST_F(EventBase, ECommerceEventWritesOnlyTheFieldsOfJXEvent) {
  const auto event = JXECommerceEvent::init();
  event->setCurrency("GBP");
  event->items().append(JXItem::init());
  EXPECT_EQ(compactJson(*event),
            R"({"context":{"event_id":"00000000-0000-4000-8000-000000000001"}})");
}

TEST_F(EventBase, AccessorsReturnTheValuesThatWereSet) {
  const auto event = JXECommerceEvent::init();
  event->setName("1");
  event->setPageName("2");
  event->setPageType("3");
  event->setCurrency("4");
  EXPECT_EQ(event->name(), JXString("1"));
  EXPECT_EQ(event->pageName(), JXString("2"));
  EXPECT_EQ(event->pageType(), JXString("3"));
  EXPECT_EQ(event->currency(), JXString("4"));
}

TEST_F(EventBase, FindsClassesByNameAndCreatesTheirEvents) {
  const JXEventClass* const custom = eventClassNamed("JXCustomEvent");
  ASSERT_NE(custom, nullptr);
  EXPECT_EQ(custom->base, &JXEvent::eventClass());
  EXPECT_EQ(custom->create(0, "quiz")->name(), JXString("quiz"));
  EXPECT_FALSE(custom->create(0, nullptr)->name().isPresent());
  ASSERT_NE(eventClassNamed("JXEvent"), nullptr);
  EXPECT_EQ(eventClassNamed("JXEvent")->base, nullptr);
  ASSERT_NE(eventClassNamed("JXECommerceEvent"), nullptr);
  EXPECT_EQ(eventClassNamed("JXNoEvent"), nullptr);
  EXPECT_EQ(eventClassNamed(""), nullptr);
}

TEST_F(EventBase, SetsAndReturnsPropertiesOfTheClassAndItsBasesByName) {
  const JXEventClass& type = JXECommerceEvent::eventClass();
  const auto event = JXECommerceEvent::init();
  EXPECT_EQ(type.setProperty(*event, "pageName", "home"), "");
  EXPECT_EQ(type.setProperty(*event, "currency", "GBP"), "");
  EXPECT_EQ(event->pageName(), JXString("home"));
  EXPECT_EQ(event->currency(), JXString("GBP"));
  EXPECT_EQ(type.setProperty(*event, "pageName", JXJsonValue::null()), "");
  EXPECT_FALSE(event->pageName().isPresent());
  EXPECT_NE(type.setProperty(*event, "currency", 7), "") << "must be a string";
  EXPECT_EQ(event->currency(), JXString("GBP"));
  EXPECT_NE(type.setProperty(*event, "coupon", "c"), "") << "not a field of this class";
  event->setPageName("home");
  EXPECT_EQ(type.getProperty(*event, "pageName").string(), JXString("home"));
  EXPECT_EQ(type.getProperty(*event, "currency").string(), JXString("GBP"));
  EXPECT_FALSE(type.getProperty(*event, "pageType").isPresent());
  EXPECT_FALSE(type.getProperty(*event, "coupon").isPresent()) << "not a field of this class";
}

template <typename Value, typename = void>
constexpr bool isParameter = false;
template <typename Value>
constexpr bool isParameter<
    Value, std::void_t<decltype(std::declval<JXEvent&>().addAdditionalParameter_withValue(
               "key", std::declval<Value>()))>> = true;

static_assert(isParameter<const char*> && isParameter<std::string> && isParameter<JXString>);
static_assert(isParameter<bool> && isParameter<int> && isParameter<std::uint64_t>);
static_assert(isParameter<JXDecimal> && isParameter<std::nullptr_t>);
static_assert(!isParameter<double> && !isParameter<float> && !isParameter<long double>);
static_assert(!isParameter<char> && !isParameter<const void*>);

TEST_F(EventBase, StoresNumericAndBooleanParametersWithTheirJsonType) {
  const auto event = JXEvent::init();
  event->addAdditionalParameter_withValue("string", "7");
  event->addAdditionalParameter_withValue("amount", JXDecimal::fromString("12.50"));
  event->addAdditionalParameter_withValue("count", 7);
  event->addAdditionalParameter_withValue("zero", 0);
  event->addAdditionalParameter_withValue("large", std::uint64_t{18446744073709551615u});
  event->addAdditionalParameter_withValue("yes", true);
  event->addAdditionalParameter_withValue("no", false);
  EXPECT_EQ(JXJsonWriter::write(event->getAdditionalProperties(), JXJsonStyle::Compact).text,
            R"({"string":"7","amount":12.50,"count":7,"zero":0,"large":18446744073709551615,)"
            R"("yes":true,"no":false})");
  event->addAdditionalParameter_withValue("count", "seven");
  EXPECT_EQ(event->getAdditionalProperties().get("count").string(), JXString("seven"));
}

TEST_F(EventBase, IgnoresNaNParametersAndNullKeysOfNumbers) {
  const auto event = JXEvent::init();
  event->addAdditionalParameter_withValue("amount", JXDecimal::nan());
  event->addAdditionalParameter_withValue(nullptr, 7);
  event->addAdditionalParameter_withValue(nullptr, true);
  event->addAdditionalParameter_withValue("string", nullptr);
  EXPECT_EQ(event->getAdditionalProperties().size(), 0u);
}

}  // namespace
}  // namespace jx::test
