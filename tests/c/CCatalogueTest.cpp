// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests that every class and field is available in C and yields the same body as in C++.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "jx/c/jx_catalogue.h"
#include "jx/c/jx_object.h"
#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "jx/events/video/JXAdTypes.h"
#include "jx/events/video/JXVideoModes.h"
#include "tests/c/CTestTools.h"
#include "tests/c/EverySetter.h"
#include "tests/c/PlainC.h"
#include "tests/c/SampleValues.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

JXJsonValue sample(const JXFieldInfo& field) {
  const JXJsonReading reading = JXJsonReader::read(sampleJson(field));
  EXPECT_EQ(reading.error, "");
  return reading.value;
}

void fill(const JXEventClass& type, JXEvent& event) {
  for (const JXBlockClass* part = &type; part != nullptr; part = part->base) {
    for (const JXFieldTable* table : {part->written, part->unwritten}) {
      if (table == nullptr) continue;
      for (const JXFieldInfo& field : table->fields())
        EXPECT_EQ(type.setProperty(event, field.property, sample(field)), "") << field.property;
    }
  }
}

template <typename Block>
std::string filledJson() {
  const auto block = Block::init();
  const auto& fields = Block::fields().fields();
  for (std::size_t i = 0; i < fields.size(); ++i)
    EXPECT_EQ(Block::fields().set(*block, i, sample(fields[i])), "");
  return jsonText(block->getJsonObject());
}

// Returns JSON by class name, with every field set in C++.
std::map<std::string, std::string> filledInCpp() {
  std::map<std::string, std::string> bodies;
  for (const JXEventClass* type : allEventClasses()) {
    const int lastMode = static_cast<int>(type->modes.size()) - 1;
    const auto event = type->create(type->modes.empty() ? 0 : lastMode, "session");
    fill(*type, *event);
    bodies[std::string(type->className)] = eventJson(*event);
  }
  bodies["JXItem"] = filledJson<JXItem>();
  bodies["JXProduct"] = filledJson<JXProduct>();
  return bodies;
}

using Bodies = std::map<std::string, std::string>;

void storeBody(void* context, const char* className, jx_object* object) {
  EXPECT_STREQ(jx_object_class(object), className);
  (*static_cast<Bodies*>(context))[className] = objectJson(object);
}

// Sets a field with the function for its kind.
jx_status setByName(jx_object* object, const jx_field& field, const jx_object* item,
                    const jx_object* product) {
  const char* const strings[] = {"one", nullptr, "three"};
  const std::string string = "a " + std::string(field.property);
  switch (field.kind) {
    case JX_KIND_STRING:
      return jx_object_set_string(object, field.property, string.c_str());
    case JX_KIND_NUMBER:
      return jx_object_set_number(object, field.property, "12.50");
    case JX_KIND_BOOLEAN:
      return jx_object_set_boolean(object, field.property, true);
    case JX_KIND_STRINGS:
    case JX_KIND_NUMBERED_STRINGS:
      return jx_object_set_strings(object, field.property, strings, 3);
    case JX_KIND_ENUM:
      return jx_object_set_enum(object, field.property,
                                static_cast<std::uint32_t>(field.member_count - 1));
    case JX_KIND_ITEMS:
      EXPECT_EQ(jx_object_list_clear(object, field.property), JX_OK);
      EXPECT_EQ(jx_object_add_item(object, field.property, item), JX_OK);
      return jx_object_add_item(object, field.property, item);
    case JX_KIND_PRODUCT:
      return jx_object_set_product(object, field.property, product);
    case JX_KIND_VALUES:
      break;
  }
  return jx_object_set_json(object, field.property,
                            sampleJson({{}, {}, JXFieldKind::Values, {}}).c_str());
}

TEST(CCatalogue, SetsAndReadsEveryFieldByItsFunctionsLikeCpp) {
  eventPlatform();
  Bodies inC;
  EXPECT_EQ(every_setter(&storeBody, &inC), 0);
  const Bodies inCpp = filledInCpp();
  EXPECT_EQ(inC.size(), 28u);
  EXPECT_EQ(inCpp.size(), 28u);
  for (const auto& [name, body] : inCpp)
    EXPECT_EQ(inC[name], body);
}

TEST(CCatalogue, SetsEveryFieldByNameLikeCpp) {
  eventPlatform();
  const Bodies inCpp = filledInCpp();
  const Object product = makeProduct("p1", "3.390");
  const Object item = makeItem("i1", 2, product.get());
  Bodies inC;
  for (const JXEventClass* type : allEventClasses()) {
    const std::string name(type->className);
    const Object object = makeEvent(name.c_str(), type->modes.size());
    for (const jx_class* part = jx_class_named(name.c_str()); part != nullptr; part = part->base) {
      for (size_t i = 0; i < part->field_count; ++i) {
        const jx_field& field = part->fields[i];
        EXPECT_EQ(setByName(object.get(), field, item.get(), product.get()), JX_OK)
            << name << "." << field.property;
      }
    }
    inC[name] = objectJson(object.get());
  }
  for (const auto& [name, body] : inC)
    EXPECT_EQ(body, inCpp.at(name));
  EXPECT_EQ(inC.size(), 26u);
}

TEST(CCatalogue, ListsEveryClassWithItsBaseNamesModesAndFields) {
  size_t index = 0;
  for (const JXEventClass* type : allEventClasses()) {
    const jx_class* const inC = jx_class_at(index++);
    ASSERT_NE(inC, nullptr);
    EXPECT_EQ(std::string(type->className), inC->name);
    EXPECT_TRUE(inC->is_event);
    EXPECT_EQ(inC->base, type->base == nullptr
                             ? nullptr
                             : jx_class_named(std::string(type->base->className).c_str()));
    const size_t unwritten = type->unwritten == nullptr ? 0 : type->unwritten->fields().size();
    EXPECT_EQ(inC->field_count, type->written->fields().size() + unwritten);
    ASSERT_EQ(inC->event_name_count, type->eventNames.size());
    ASSERT_EQ(inC->mode_count, type->modes.size());
    for (size_t i = 0; i < inC->mode_count; ++i)
      EXPECT_EQ(type->modes[i], inC->modes[i]);
  }
  EXPECT_STREQ(jx_class_at(index)->name, "JXItem");
  EXPECT_STREQ(jx_class_at(index + 1)->name, "JXProduct");
  EXPECT_FALSE(jx_class_at(index + 1)->is_event);
  EXPECT_EQ(jx_class_at(index + 2), nullptr);
}

TEST(CCatalogue, ListsEveryFieldByPropertyKeyKindAndEnumerators) {
  const auto expectSame = [](const jx_field*& inC, const JXFieldTable& table, bool isWritten) {
    for (const JXFieldInfo& field : table.fields()) {
      EXPECT_EQ(field.property, inC->property);
      EXPECT_EQ(field.key, inC->key) << inC->property;
      EXPECT_EQ(static_cast<int>(field.kind), inC->kind) << inC->property;
      EXPECT_EQ(inC->is_written, isWritten) << inC->property;
      ASSERT_EQ(field.enumStrings.count, inC->member_count) << inC->property;
      for (size_t i = 0; i < inC->member_count; ++i)
        EXPECT_EQ(field.enumStrings.enumerators[i], inC->members[i]);
      ++inC;
    }
  };
  for (const JXEventClass* type : allEventClasses()) {
    const jx_class* const inC = jx_class_named(std::string(type->className).c_str());
    const jx_field* field = inC->fields;
    expectSame(field, *type->written, true);
    if (type->unwritten != nullptr) expectSame(field, *type->unwritten, false);
    for (size_t i = 0; i < inC->event_name_count; ++i)
      EXPECT_EQ(type->eventNames[i], inC->event_names[i]);
  }
  const jx_field* field = jx_class_named("JXItem")->fields;
  expectSame(field, JXItem::fields(), true);
  field = jx_class_named("JXProduct")->fields;
  expectSame(field, JXProduct::fields(), true);
  EXPECT_EQ(jx_class_named("JXItem")->field_count, JXItem::fields().fields().size());
  EXPECT_EQ(jx_class_named("JXProduct")->field_count, JXProduct::fields().fields().size());
}

TEST(CCatalogue, DeclaresConstantsUnderTheirCppNames) {
  const char* const strings[] = {"id",
                                 "payment_method",
                                 "quantity",
                                 "category_",
                                 "session_id",
                                 "namespace",
                                 "ad_type",
                                 "os",
                                 "card",
                                 "shipped",
                                 "#JX_LANGUAGE#",
                                 "#JX_CS_START_FT#",
                                 "#JX_IDFA#",
                                 "#JX_CONSENT_VERSION#",
                                 "JXNotification: HTTP Request",
                                 "JXUserInfo: URL"};
  const char* const* inC = plain_names();
  for (const char* expected : strings)
    EXPECT_STREQ(*inC++, expected);
  EXPECT_EQ(*inC, nullptr);
  // In C++ they are arrays next to the constants of namespace jx.
  EXPECT_EQ(jx::JXE_PAYMENTMETHOD, ::JXE_PAYMENTMETHOD);
  EXPECT_EQ(jx::EJXPurchaseStatus_SHIPPE, ::EJXPurchaseStatus_SHIPPE);
  EXPECT_EQ(jx::kJXNotification_HTTPRequest, ::kJXNotification_HTTPRequest);
  EXPECT_EQ(int{jx::EJXAdType_POST_ROLL}, int{::EJXAdType_POST_ROLL});
  EXPECT_EQ(int{jx::EJXVideoSettingMode_SHARE}, int{::EJXVideoSettingMode_SHARE});
}

TEST(CCatalogue, DescribesAFieldByPropertyKeyKindAndEnumerators) {
  const jx_class* const ad = jx_class_named("JXVideoAdEvent");
  ASSERT_NE(ad, nullptr);
  ASSERT_EQ(ad->field_count, 7u);
  const jx_field& field = ad->fields[5];
  EXPECT_STREQ(field.property, "adType");
  EXPECT_STREQ(field.key, "ad_type");
  EXPECT_EQ(field.kind, JX_KIND_ENUM);
  EXPECT_TRUE(field.is_written);
  ASSERT_EQ(field.member_count, 3u);
  EXPECT_STREQ(field.members[1], "MID_ROLL");
  const jx_class* const shopping = jx_class_named("JXECommerceEvent");
  ASSERT_EQ(shopping->field_count, 2u);
  EXPECT_FALSE(shopping->fields[0].is_written);
}

TEST(CCatalogue, ReturnsNullForUnknownAndNullNames) {
  EXPECT_EQ(jx_class_named("JXNothing"), nullptr);
  EXPECT_EQ(jx_class_named(""), nullptr);
  EXPECT_EQ(jx_class_named(nullptr), nullptr);
}

}  // namespace
}  // namespace jx::test
