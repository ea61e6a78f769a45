// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A body is written directly from the event's field table if the result equals the event's JSON
// object. These tests compare both ways.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/ecommerce/JXPurchaseEvent.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

// Writes another event as its own, always from the JSON object.
class Wrapped : public JXEvent {
 public:
  explicit Wrapped(std::shared_ptr<JXEvent> inner) : inner_(std::move(inner)) {}
  JXJsonObject getJsonObject() const override { return inner_->getJsonObject(); }

 private:
  std::shared_ptr<JXEvent> inner_;
};

// Makes the protected check accessible for events of all classes.
struct SerialisationAccess : JXEvent {
  using JXEvent::canSerialiseFromFieldTable;
};

bool isSerialisedFromFieldTable(const JXEvent& event) {
  return (event.*&SerialisationAccess::canSerialiseFromFieldTable)();
}

// Returns a value that the field accepts.
JXJsonValue sampleOf(const JXFieldInfo& field) {
  const auto read = [](const char* json) { return JXJsonReader::read(json).value; };
  switch (field.kind) {
    case JXFieldKind::String:
      return "A \"text\" of \xC3\xA9 \n";
    case JXFieldKind::Number:
      return read("-12.50");
    case JXFieldKind::Boolean:
      return true;
    case JXFieldKind::Strings:
    case JXFieldKind::NumberedStrings:
      return read(R"(["one", "two"])");
    case JXFieldKind::Values:
      return read(R"([1, {"a": [true, null]}, []])");
    case JXFieldKind::Enumeration:
      return field.enumStrings.enumerators[field.enumStrings.count - 1];
    case JXFieldKind::Items:
      return read(R"([{"ID": "1", "quantity": 2, "parameters": {"gift": true, "quantity": 9},
                       "product": {"ID": "p", "price": "2.550", "categories": ["x", "y"],
                                   "parameters": {"extra": {}}}},
                      {"ID": "2", "product": null}])");
    case JXFieldKind::Product:
      return read(R"({"ID": "p", "name": "P"})");
  }
  return {};
}

void fill(JXEvent& event) {
  for (const JXBlockClass* type = &event.ownEventClass(); type != nullptr; type = type->base) {
    for (const JXFieldInfo& field : type->written->fields()) {
      if (field.property == "name") continue;
      EXPECT_EQ(type->setProperty(event, field.property, sampleOf(field)), "") << field.property;
    }
  }
}

class EventSerialisation : public ServerSideFixture {
 protected:
  EventSerialisation() : serverSide_(make()) {
    bodyOf(JXCustomEvent::initWithName("the first one"));
  }

  // Returns the body with the event ID replaced, because each call creates a new one.
  std::string bodyOf(const std::shared_ptr<JXEvent>& event) {
    serverSide_->execute(event);
    std::string text = requests().back().text;
    const std::string key = "\"event_id\": \"";
    const std::size_t at = text.find(key);
    EXPECT_NE(at, std::string::npos) << text;
    if (at != std::string::npos) text.replace(at + key.size(), 36, "E");
    return text;
  }
  void expectSameBothWays(const std::shared_ptr<JXEvent>& event) {
    EXPECT_EQ(bodyOf(event), bodyOf(std::make_shared<Wrapped>(event)));
  }

  std::shared_ptr<ServerSide> serverSide_;
};

TEST_F(EventSerialisation, UsesFieldTableForEveryClass) {
  for (const JXEventClass* type : allEventClasses()) {
    const auto event = type->create(0, "session");
    EXPECT_TRUE(isSerialisedFromFieldTable(*event)) << type->className;
    EXPECT_FALSE(isSerialisedFromFieldTable(Wrapped(event))) << type->className;
  }
}

TEST_F(EventSerialisation, MarksEveryDuplicateKey) {
  for (const JXEventClass* type : allEventClasses()) {
    std::multiset<std::string_view> keys{"event_name", "page_name", "page_type", "context", "user"};
    for (const JXBlockClass* each = type; each->base != nullptr; each = each->base) {
      for (const JXFieldInfo& field : each->written->fields()) {
        if (!field.isDuplicate) keys.insert(field.key);
      }
    }
    for (const std::string_view key : keys)
      EXPECT_EQ(keys.count(key), 1u) << type->className << " " << key;
  }
}

TEST_F(EventSerialisation, FieldTableAndJsonObjectGiveTheSameBody) {
  ASSERT_EQ(allEventClasses().size(), 26u);
  for (const JXEventClass* type : allEventClasses()) {
    SCOPED_TRACE(std::string(type->className));
    const auto event = type->create(0, "session");
    expectSameBothWays(event);
    fill(*event);
    expectSameBothWays(event);
    event->addAdditionalParameter_withValue("extra", "text");
    JXJsonObject nested;
    nested.set("list", JXJsonReader::read("[1.50, [], {}]").value);
    event->addAdditionalParameter_forJsonDict("nested", nested);
    EXPECT_TRUE(isSerialisedFromFieldTable(*event));
    expectSameBothWays(event);
  }
}

TEST_F(EventSerialisation, GivesTheSameBodyWithExtendedContextBlocks) {
  JXUser::sharedInstance().addAdditionalProperty_withStringValue("anonymous_id", "replaced");
  JXUser::sharedInstance().addAdditionalProperty_withStringValue("segment", "gold");
  const auto event = JXCustomEvent::initWithName("quiz");
  expectSameBothWays(event);
  EXPECT_NE(bodyOf(event).find("\"segment\": \"gold\""), std::string::npos);
  EXPECT_EQ(bodyOf(event).find("replaced"), std::string::npos);
}

TEST_F(EventSerialisation, FieldReplacesAdditionalPropertyInItsPlace) {
  const auto event = JXPurchaseEvent::init();
  event->setCurrency("GBP");
  for (const char* key : {"currency", "event_name", "context", "user", "coupon"}) {
    event->addAdditionalParameter_withValue(key, "extra");
    EXPECT_FALSE(isSerialisedFromFieldTable(*event)) << key;
  }
  const std::string body = bodyOf(event);
  const std::string start = R"({
  "currency": "GBP",
  "event_name": "purchase",
  "context": {
    "event_id": "E",
    "device": {)";
  EXPECT_EQ(body.substr(0, start.size()), start);
  EXPECT_NE(body.find("  \"coupon\": \"extra\",\n  \"items\": []\n}"), std::string::npos) << body;
  EXPECT_NE(body.find("  \"user\": {\n    \"anonymous_id\""), std::string::npos) << body;
}

TEST_F(EventSerialisation, OmitsCircularReferenceBothWays) {
  const auto event = JXCustomEvent::initWithName("quiz");
  JXJsonObject circular;
  circular.set("good", 1);
  circular.set("self", circular);
  event->addAdditionalParameter_forJsonDict("circular", circular);
  expectSameBothWays(event);
  EXPECT_NE(bodyOf(event).find("\"circular\": {\n    \"good\": 1\n  },"), std::string::npos);
  circular.clear();  // breaks the reference cycle, which would leak
}

}  // namespace
}  // namespace jx::test
