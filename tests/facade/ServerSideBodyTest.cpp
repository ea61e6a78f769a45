// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The request body: its exact format, and the values that an application may add to it.

#include <gmock/gmock.h>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXUser.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXECommerceEvent.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::HasSubstr;

class EventBody : public ServerSideFixture {
 protected:
  Request sent(const JXString& name, const JXString& key, const JXString& value) {
    const auto serverSide = make();
    const auto event = JXCustomEvent::initWithName(name);
    event->addAdditionalParameter_withValue(key, value);
    serverSide->execute(event);
    EXPECT_EQ(requests().size(), 1u);
    EXPECT_TRUE(requests().back().body.isPresent());
    return requests().back();
  }
};

TEST_F(EventBody, OfCustomEventMatchesExactly) {
  const auto serverSide = make();
  clock->advance(5'000);
  serverSide->addPermanentData_withValue("store", "uk");
  const auto event = JXCustomEvent::initWithName("quiz");
  event->setPageName("home");
  event->setPageType("hub");
  event->addAdditionalParameter_withValue("answer", "B \"bold\"");
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_EQ(requests()[0].text, R"({
  "answer": "B \"bold\"",
  "store": "uk",
  "event_name": "quiz",
  "page_name": "home",
  "page_type": "hub",
  "context": {
    "event_id": "00000000-0000-4000-8000-000000000005",
    "device": {
      "sdk_id": "00000000-0000-4000-8000-000000000001",
      "language": "en",
      "region": "GB",
      "manufacturer": "Apple",
      "model": "ExampleTV6,2",
      "name": "Example Television",
      "type": "tvos",
      "network": {
        "connection_type": "ethernet"
      },
      "os": {
        "name": "tvos",
        "version": "17.4"
      },
      "screen": {
        "width": 1920,
        "height": 1080
      },
      "timezone": "Europe/London",
      "lifecycle": {
        "session_id": "00000000-0000-4000-8000-000000000004",
        "new_session": true,
        "session_duration": 5000,
        "current_session": 1700000000000,
        "visit_number": 1,
        "current_visit": 1700000000000,
        "current_version_first_visit": 1700000000000,
        "session_number": 1,
        "first_visit": 1700000000000,
        "last_visit": 1700000000000,
        "last_call": 1700000005000,
        "last_session_start": 0,
        "last_session_last_hit": 0,
        "foreground_transitions": 1,
        "foreground_time": 5000,
        "background_time": 0,
        "first_execute": true,
        "is_first_visit": true
      }
    },
    "app": {
      "name": "Example TV",
      "version": "1.0",
      "build": "100",
      "namespace": "com.example.tv",
      "serverside_version": "5.4.5",
      "core_version": "1.0.0"
    },
    "event_timestamp": 1700000005000
  },
  "user": {
    "anonymous_id": "00000000-0000-4000-8000-000000000002"
  }
})");
}

TEST_F(EventBody, EndsWithMarkerWhileWaitingForConsent) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make();
  const Request request = execute(*serverSide);
  EXPECT_THAT(request.text, ::testing::EndsWith("  },\n  \"user\": \"waiting_for_consent\"\n}"));
}

TEST_F(EventBody, OmitsEventNameIfNull) {
  const auto serverSide = make();
  const auto event = JXCustomEvent::initWithName(nullptr);
  event->addAdditionalParameter_withValue("event_name", "forged");
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_FALSE(requests()[0].body.contains("event_name"));
}

TEST_F(EventBody, IsSentForEventThatFailsValidation) {
  const auto serverSide = make();
  const auto event = JXEvent::init();
  ASSERT_FALSE(event->verifyEvent());
  serverSide->execute(event);
  EXPECT_EQ(requests().size(), 1u);
}

TEST_F(EventBody, OfECommerceBaseEventHasNoItemsOrCurrency) {
  const auto serverSide = make();
  const auto event = JXECommerceEvent::init();
  event->setCurrency("GBP");
  event->setName("shop");
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_FALSE(requests()[0].body.contains("items"));
  EXPECT_FALSE(requests()[0].body.contains("currency"));
}

TEST_F(EventBody, IncludesAdditionalPropertiesOfTheUserBlock) {
  const auto serverSide = make();
  JXUser::sharedInstance().addAdditionalProperty_withStringValue("segment", "s-7");
  const JXJsonObject user = execute(*serverSide).body.get("user").object();
  EXPECT_EQ(user.get("segment").string(), JXString("s-7"));
}

TEST_F(EventBody, WritesEmptyStringAddedToTheUserBlock) {
  const auto serverSide = make();
  JXUser& user = JXUser::sharedInstance();
  user.addAdditionalProperty_withStringValue("segment", "s-7");
  user.addAdditionalProperty_withStringValue("segment", nullptr);
  user.addAdditionalProperty_withStringValue("plan", "");
  user.setAnonymous_id("a-1");
  user.setAnonymous_id("");
  user.setAnonymous_id(nullptr);
  const JXJsonObject block = execute(*serverSide).body.get("user").object();
  EXPECT_EQ(block.get("segment").string(), JXString("s-7")) << "null is ignored";
  EXPECT_EQ(block.get("plan").string(), JXString(""));
  EXPECT_EQ(block.get("anonymous_id").string(), JXString("a-1")) << "null and empty are ignored";
}

TEST_F(EventBody, ReportsCurrentNetworkType) {
  platform->network = JXNetworkKind::None;
  const auto serverSide = make();
  const JXJsonObject network = inside(execute(*serverSide).body, {"context", "device", "network"});
  EXPECT_EQ(network.get("connection_type").string(), JXString("none"));
}

TEST_F(EventBody, KeepsEmoji) {
  const std::string emoji = "\xF0\x9F\x8E\xAC caf\xC3\xA9 \xE2\x82\xAC";
  const Request request = sent(emoji, emoji, emoji);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(emoji));
  EXPECT_EQ(request.body.get(emoji).string(), JXString(emoji));
  EXPECT_THAT(request.text, HasSubstr(emoji)) << "as UTF-8, not escaped";
}

TEST_F(EventBody, KeepsControlCharacters) {
  std::string controls;
  for (char c = 1; c < 32; ++c)
    controls.push_back(c);
  controls += "\x7F\\\"/";
  const Request request = sent(controls, controls, controls);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(controls));
  EXPECT_EQ(request.body.get(controls).string(), JXString(controls));
}

TEST_F(EventBody, KeepsEmbeddedNul) {
  const std::string nul("a\0b", 3);
  const Request request = sent(nul, nul, nul);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(nul));
  EXPECT_EQ(request.body.get(nul).string(), JXString(nul));
}

TEST_F(EventBody, ReplacesInvalidUtf8WithReplacementCharacter) {
  const std::string invalid = "a\xFF\xC3(\xED\xA0\x80z";
  const std::string replaced = "a\xEF\xBF\xBD\xEF\xBF\xBD(\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDz";
  const Request request = sent(invalid, invalid, invalid);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(replaced));
  EXPECT_EQ(request.body.get(replaced).string(), JXString(replaced));
}

TEST_F(EventBody, KeepsOneMebibyteString) {
  std::string long_(1024 * 1024, 'x');
  long_[700'000] = '"';
  const Request request = sent("quiz", "long", long_);
  EXPECT_EQ(request.body.get("long").string(), JXString(long_));
}

TEST_F(EventBody, KeepsTwoHundredNestedObjects) {
  const auto serverSide = make();
  JXJsonObject outer;
  JXJsonObject inner = outer;
  for (int level = 1; level < 200; ++level) {
    JXJsonObject next;
    inner.set("in", next);
    inner = next;
  }
  inner.set("bottom", true);
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter_forJsonDict("out", outer);
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  JXJsonObject found = requests()[0].body.get("out").object();
  for (int level = 1; level < 200; ++level)
    found = found.get("in").object();
  EXPECT_TRUE(found.get("bottom").boolValue());
}

TEST_F(EventBody, OmitsCircularReferenceAndLogsOnce) {
  const auto serverSide = make();
  JXJsonObject circular;
  circular.set("self", circular);
  circular.set("kept", true);
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter_forJsonDict("circular", circular);
  forgetLines();
  serverSide->execute(event);
  EXPECT_EQ(linesUpTo(3),
            (std::vector<LogLine>{
                {3, "Event sent without some values: circular reference or size limit exceeded"}}));
  ASSERT_EQ(requests().size(), 1u);
  const JXJsonObject found = requests()[0].body.get("circular").object();
  EXPECT_TRUE(found.get("kept").boolValue());
  EXPECT_FALSE(found.contains("self"));
  circular.clear();
}

TEST_F(EventBody, KeepsNumbersExactly) {
  const auto serverSide = make();
  JXJsonObject numbers;
  numbers.set("price", JXJsonValue::numberFromString("12.50"));
  numbers.set("big", JXJsonValue::numberFromString("12345678901234567890123456789012345678901"));
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter(numbers);
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_THAT(requests()[0].text, HasSubstr("\"price\": 12.50,"));
  EXPECT_THAT(requests()[0].text, HasSubstr("\"big\": 12345678901234567890123456789012345678901,"));
}

}  // namespace
}  // namespace jx::test
