// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The body of a request: its shape byte for byte, and what a host may put into it.

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

TEST_F(EventBody, OfACustomEventByteForByte) {
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

TEST_F(EventBody, EndsWithTheMarkerWhileConsentIsAwaited) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make();
  const Request request = execute(*serverSide);
  EXPECT_THAT(request.text, ::testing::EndsWith("  },\n  \"user\": \"waiting_for_consent\"\n}"));
}

TEST_F(EventBody, HasNoNameWhenTheEventHasNone) {
  const auto serverSide = make();
  const auto event = JXCustomEvent::initWithName(nullptr);
  event->addAdditionalParameter_withValue("event_name", "forged");
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_FALSE(requests()[0].body.contains("event_name"));
}

TEST_F(EventBody, IsSentForAnEventThatDoesNotVerify) {
  const auto serverSide = make();
  const auto event = JXEvent::init();
  ASSERT_FALSE(event->verifyEvent());
  serverSide->execute(event);
  EXPECT_EQ(requests().size(), 1u);
}

TEST_F(EventBody, OfAnUnfilledShoppingEventHasNeitherItemsNorCurrency) {
  const auto serverSide = make();
  const auto event = JXECommerceEvent::init();
  event->setCurrency("GBP");
  event->setName("shop");
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_FALSE(requests()[0].body.contains("items"));
  EXPECT_FALSE(requests()[0].body.contains("currency"));
}

TEST_F(EventBody, CarriesWhatTheHostAddsToTheUserBlock) {
  const auto serverSide = make();
  JXUser::sharedInstance().addAdditionalProperty_withStringValue("segment", "s-7");
  const JXJsonObject user = execute(*serverSide).body.get("user").object();
  EXPECT_EQ(user.get("segment").string(), JXString("s-7"));
}

TEST_F(EventBody, TellsTheNetworkKindOfTheMoment) {
  platform->network = JXNetworkKind::None;
  const auto serverSide = make();
  const JXJsonObject network = inside(execute(*serverSide).body, {"context", "device", "network"});
  EXPECT_EQ(network.get("connection_type").string(), JXString("none"));
}

TEST_F(EventBody, EmojiArriveAsGiven) {
  const std::string emoji = "\xF0\x9F\x8E\xAC caf\xC3\xA9 \xE2\x82\xAC";
  const Request request = sent(emoji, emoji, emoji);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(emoji));
  EXPECT_EQ(request.body.get(emoji).string(), JXString(emoji));
  EXPECT_THAT(request.text, HasSubstr(emoji)) << "as UTF-8, not as escapes";
}

TEST_F(EventBody, ControlCharactersArriveAsGiven) {
  std::string controls;
  for (char c = 1; c < 32; ++c)
    controls.push_back(c);
  controls += "\x7F\\\"/";
  const Request request = sent(controls, controls, controls);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(controls));
  EXPECT_EQ(request.body.get(controls).string(), JXString(controls));
}

TEST_F(EventBody, AnEmbeddedNulArrivesAsGiven) {
  const std::string nul("a\0b", 3);
  const Request request = sent(nul, nul, nul);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(nul));
  EXPECT_EQ(request.body.get(nul).string(), JXString(nul));
}

TEST_F(EventBody, BytesThatAreNoUtf8BecomeTheReplacementCharacter) {
  const std::string bad = "a\xFF\xC3(\xED\xA0\x80z";
  const std::string good = "a\xEF\xBF\xBD\xEF\xBF\xBD(\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDz";
  const Request request = sent(bad, bad, bad);
  EXPECT_EQ(request.body.get("event_name").string(), JXString(good));
  EXPECT_EQ(request.body.get(good).string(), JXString(good));
}

TEST_F(EventBody, AMebibyteArrivesAsGiven) {
  std::string long_(1024 * 1024, 'x');
  long_[700'000] = '"';
  const Request request = sent("quiz", "long", long_);
  EXPECT_EQ(request.body.get("long").string(), JXString(long_));
}

TEST_F(EventBody, TwoHundredLevelsArriveAsGiven) {
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

TEST_F(EventBody, AnObjectThatContainsItselfIsOneLineAndLeftOut) {
  const auto serverSide = make();
  JXJsonObject endless;
  endless.set("self", endless);
  endless.set("kept", true);
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter_forJsonDict("endless", endless);
  forgetLines();
  serverSide->execute(event);
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  ASSERT_EQ(requests().size(), 1u);
  const JXJsonObject found = requests()[0].body.get("endless").object();
  EXPECT_TRUE(found.get("kept").boolValue());
  EXPECT_FALSE(found.contains("self"));
  endless.clear();
}

TEST_F(EventBody, NumbersOfTheHostArriveDigitForDigit) {
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
