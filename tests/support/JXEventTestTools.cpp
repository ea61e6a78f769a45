// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXEventTestTools.h"

#include <cstdio>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/json/JXJsonWriter.h"

namespace jx::test {
namespace {

// The fake platform numbers its UUIDs.
std::string lastUUID() {
  char text[40];
  std::snprintf(text, sizeof text, "00000000-0000-4000-8000-%012X",
                static_cast<unsigned>(eventPlatform().uuidCount()));
  return text;
}

}  // namespace

JXFakePlatform& eventPlatform() {
  static const std::shared_ptr<JXFakePlatform> platform = [] {
    auto made = std::make_shared<JXFakePlatform>();
    JXCoreConfiguration configuration;
    configuration.platform = made;
    configuration.dryRun = true;
    // Set to avoid the warning about a missing folder; a dry run does not create it.
    configuration.storageFolder = "not-created";
    EXPECT_TRUE(JXCoreConfiguration::set(configuration)) << "the core has started already";
    JXCoreServices::sharedInstance();
    return made;
  }();
  return *platform;
}

std::string eventJson(const JXEvent& event) {
  eventPlatform();
  const JXJsonObject json = event.getJsonObject();
  JXJsonObject context = json.get("context").object();
  EXPECT_EQ(context.get("event_id").string(), JXString(lastUUID()));
  context.set("event_id", "E");
  return jsonText(json);
}

std::string jsonText(const JXJsonObject& object) {
  return JXJsonWriter::write(object, JXJsonStyle::Compact).text;
}

JXDecimal decimal(const char* text) {
  const JXDecimal number = JXDecimal::fromString(text);
  EXPECT_FALSE(number.isNaN()) << text;
  return number;
}

std::shared_ptr<JXItem> lampItem() {
  return JXItem::initWithItemId_withProduct_withQuantity(
      "1", JXProduct::initWithProductId_withName_withPrice("L7", "Lamp", decimal("12.50")), 2);
}

}  // namespace jx::test
