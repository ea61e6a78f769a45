// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The steps of `execute`.

#include <gmock/gmock.h>

#include <stdexcept>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXItem.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "jx/events/video/JXVideoPlaybackEvent.h"
#include "jx/facade/JXPostData.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Execute : public ServerSideFixture {};

// An application's event class that throws while it is serialised.
class BrokenEvent final : public JXEvent {
 public:
  JXJsonObject getJsonObject() const override { throw std::runtime_error("no such screen"); }
};

// An application's event class that throws an object which is not a std::exception.
class OddEvent final : public JXEvent {
 public:
  JXJsonObject getJsonObject() const override { throw 42; }
};

// An application's event class without a context.
class BareEvent final : public JXEvent {
 public:
  JXJsonObject getJsonObject() const override {
    JXJsonObject object;
    object.set("bare", true);
    return object;
  }
};

class Instance final : public IJXFirebaseInstance {
 public:
  explicit Instance(std::string_view supported) : supported_(supported) {}
  bool respondsToOperation(std::string_view operation) override { return operation == supported_; }
  void performOperation(std::string_view operation, const JXJsonValue& first,
                        const JXJsonValue& second) override {
    calls.push_back(std::string(operation) + " " + first.string().toStdString());
    parameters = second.object();
    if (throws) throw std::runtime_error("not configured");
  }

  std::vector<std::string> calls;
  JXJsonObject parameters{nullptr};
  bool throws = false;

 private:
  std::string supported_;
};

TEST_F(Execute, LogsAndIgnoresNullEvent) {
  const auto serverSide = make();
  forgetLines();
  serverSide->execute(nullptr);
  EXPECT_THAT(lines(), ElementsAre(LogLine{3, "execute() called with a null event; ignored"}));
  EXPECT_TRUE(requests().empty());
  EXPECT_FALSE(variable(kJXPredefinedVariable_FirstExecute).isPresent());
}

TEST_F(Execute, DoesNothingWhileDisabled) {
  const auto serverSide = make(2);
  serverSide->addPermanentData_withValue("store", "uk");
  const auto event = JXCustomEvent::initWithName("quiz");
  clock->advance(5'000);
  forgetLines();
  const JXString callBefore = variable(kJXPredefinedVariable_CurrentCallMs);
  const int writesBefore = platform->defaults.setCount();
  serverSide->execute(event);
  serverSide->execute(nullptr);
  EXPECT_TRUE(lines().empty());
  EXPECT_TRUE(requests().empty());
  EXPECT_EQ(variable(kJXPredefinedVariable_CurrentCallMs), callBefore);
  EXPECT_FALSE(variable(kJXPredefinedVariable_FirstExecute).isPresent());
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("1"));
  EXPECT_EQ(platform->defaults.setCount(), writesBefore);
  EXPECT_EQ(event->getAdditionalProperties().size(), 0u);
}

TEST_F(Execute, WritesMarkerForUserBlockWhileWaitingForConsent) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make();
  const Request request = execute(*serverSide);
  EXPECT_EQ(request.body.get("user").string(), JXString("waiting_for_consent"));
}

TEST_F(Execute, WritesUserBlockOnceEnabled) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make();
  serverSide->enableServerSide();
  const JXJsonObject user = execute(*serverSide).body.get("user").object();
  EXPECT_EQ(user.get("anonymous_id").string(), JXString("00000000-0000-4000-8000-000000000002"));
}

TEST_F(Execute, PostsOneRequestWithUrlAndBody) {
  const auto serverSide = make();
  const Request request = execute(*serverSide);
  EXPECT_EQ(request.object, serverSide.get());
  EXPECT_EQ(request.userInfo.size(), 2u);
  EXPECT_EQ(request.url, JXString("https://collect.example.com/events?jx_s=1234&token=key"));
  EXPECT_TRUE(request.body.isPresent());
}

TEST_F(Execute, LogsNameAndBodyAtLevelSix) {
  const auto serverSide = make();
  forgetLines();
  const Request request = execute(*serverSide);
  EXPECT_THAT(lines(), ElementsAre(LogLine{6, "Server-Side SDK sending event: quiz"},
                                   LogLine{6, "Event payload: " + request.text}));
}

TEST_F(Execute, LogsNothingBelowLevelSix) {
  configuration.logLevel = 5;
  const auto serverSide = make();
  forgetLines();
  execute(*serverSide);
  EXPECT_TRUE(lines().empty());
}

TEST_F(Execute, WritesCallTimeAsNumber) {
  const auto serverSide = make();
  clock->advance(1'234);
  const Request request = execute(*serverSide);
  EXPECT_EQ(context(request).get("event_timestamp").kind(), JXJsonValue::Kind::Number);
  EXPECT_EQ(context(request).get("event_timestamp").numberString(), JXString("1700000001234"));
  EXPECT_THAT(request.text, HasSubstr("\"event_timestamp\": 1700000001234\n"));
  EXPECT_EQ(variable(kJXPredefinedVariable_CurrentCallMs), JXString("1700000001234"));
}

TEST_F(Execute, OmitsTimestampIfCallTimeIsNotANumber) {
  const auto serverSide = make();
  JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  const auto event = JXCustomEvent::initWithName("quiz");
  variables.addData_withValue(kJXPredefinedVariable_CurrentCallMs, "soon");
  EXPECT_THAT(JXPostData::getPostParameters_withServerSideState(*event, 1).toStdString(),
              ::testing::Not(HasSubstr("event_timestamp")));
  variables.removeData(kJXPredefinedVariable_CurrentCallMs);
  EXPECT_THAT(JXPostData::getPostParameters_withServerSideState(*event, 1).toStdString(),
              ::testing::Not(HasSubstr("event_timestamp")));
  variables.addData_withValue(kJXPredefinedVariable_CurrentCallMs, "123456789012345678901");
  EXPECT_THAT(JXPostData::getPostParameters_withServerSideState(*event, 1).toStdString(),
              HasSubstr("\"event_timestamp\": 123456789012345678901\n"));
}

TEST_F(Execute, CreatesNewEventIdForEachCall) {
  const auto serverSide = make();
  const auto event = JXCustomEvent::initWithName("quiz");
  serverSide->addPermanentData_withValue("store", "uk");
  serverSide->execute(event);
  serverSide->execute(event);
  ASSERT_EQ(requests().size(), 2u);
  EXPECT_EQ(context(requests()[0]).get("event_id").string(),
            JXString("00000000-0000-4000-8000-000000000005"));
  EXPECT_EQ(context(requests()[1]).get("event_id").string(),
            JXString("00000000-0000-4000-8000-000000000006"));
  EXPECT_EQ(requests()[1].body.get("store").string(), JXString("uk"));
}

TEST_F(Execute, ReplacesAdditionalPropertyNamedContextOrUser) {
  const auto serverSide = make();
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter_withValue("context", "forged");
  event->addAdditionalParameter_withValue("user", "forged");
  serverSide->execute(event);
  serverSide->execute(event);
  for (const Request& request : requests()) {
    EXPECT_TRUE(context(request).contains("event_id"));
    EXPECT_TRUE(context(request).contains("device"));
    EXPECT_TRUE(request.body.get("user").object().isPresent());
  }
}

TEST_F(Execute, MarksOnlyFirstEventAsFirstExecuteAndNewSession) {
  const auto serverSide = make();
  const JXJsonObject first = lifecycle(execute(*serverSide));
  EXPECT_TRUE(first.get("first_execute").boolValue());
  EXPECT_TRUE(first.get("new_session").boolValue());
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("0"));
  const JXJsonObject second = lifecycle(execute(*serverSide));
  EXPECT_FALSE(second.get("first_execute").boolValue());
  EXPECT_FALSE(second.get("new_session").boolValue());
}

TEST_F(Execute, LogsEventThatThrowsAndSendsTheNext) {
  const auto serverSide = make();
  configuration.logLevel = 3;
  forgetLines();
  EXPECT_NO_THROW(serverSide->execute(std::make_shared<BrokenEvent>()));
  ASSERT_EQ(linesUpTo(5).size(), 1u);
  EXPECT_EQ(linesUpTo(5)[0].level, 3);
  EXPECT_THAT(linesUpTo(5)[0].message, HasSubstr("no such screen"));
  EXPECT_TRUE(requests().empty());
  EXPECT_TRUE(lifecycle(execute(*serverSide)).get("new_session").boolValue())
      << "the first event that is sent carries the mark";
}

TEST_F(Execute, LogsEventThatThrowsOtherTypes) {
  const auto serverSide = make();
  forgetLines();
  EXPECT_NO_THROW(serverSide->execute(std::make_shared<OddEvent>()));
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  execute(*serverSide);
}

TEST_F(Execute, SendsEventWithoutContext) {
  const auto serverSide = make();
  serverSide->execute(std::make_shared<BareEvent>());
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_TRUE(requests()[0].body.get("bare").boolValue());
  EXPECT_TRUE(requests()[0].body.contains("user"));
}

TEST_F(Execute, PostsNothingWithoutASender) {
  const auto serverSide = make();
  serverSide->setSenderDelegate(nullptr);
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  serverSide->enableServerSide();
  serverSide->disableServerSide();
  serverSide->changeNotificationCenter(std::make_shared<JXNotificationCenter>());
  EXPECT_TRUE(requests().empty());
  EXPECT_EQ(serverSide->serverSideState(), 1);
  EXPECT_EQ(variable(kJXPredefinedVariable_FirstExecute), JXString("TRUE"));
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("0"));
}

TEST_F(Execute, DiscardsAndLogsEventWithoutUrl) {
  const auto serverSide = make();
  const JXString url = serverSide->url();
  serverSide->setUrl(nullptr);
  forgetLines();
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  ASSERT_EQ(linesUpTo(5).size(), 1u);
  EXPECT_EQ(linesUpTo(5)[0].level, 2);
  serverSide->setUrl(url);
  EXPECT_EQ(execute(*serverSide).url, url);
  EXPECT_EQ(linesUpTo(5).size(), 1u);
}

TEST_F(Execute, AllowsObserverToExecuteAnotherEvent) {
  const auto serverSide = make();
  bool isFollowed = false;
  JXNotificationCenter::defaultCenter()->addObserver(
      serverSide.get(), kJXNotification_HTTPRequest, [&](const JXNotification&) {
        if (isFollowed) return;
        isFollowed = true;
        serverSide->execute(JXCustomEvent::initWithName("follower"));
      });
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(requests().size(), 2u);
}

TEST_F(Execute, PassesNameAndParametersToFirebase) {
  start();
  const auto instance = std::make_shared<Instance>("logEventWithName:parameters:");
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(1, "k", instance);
  serverSide->addPermanentData_withValue("store", "uk");
  execute(*serverSide);
  EXPECT_THAT(instance->calls, ElementsAre("logEventWithName:parameters: quiz"));
  EXPECT_EQ(instance->parameters.get("store").string(), JXString("uk"));
  EXPECT_FALSE(instance->parameters.contains("context"));
}

TEST_F(Execute, SharesListsButNotTheParametersWithFirebase) {
  start();
  const auto instance = std::make_shared<Instance>("logEventWithName:parameters:");
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(1, "k", instance);
  serverSide->addPermanentData_withValue("stores", JXJsonReader::read(R"(["uk"])").value);
  const auto item = JXItem::init();
  item->addAdditionalProperty(JXJsonReader::read(R"({"tags":["a"]})").value.object());
  const auto event = JXViewCartEvent::initWithItems({item});
  event->addAdditionalParameter(
      JXJsonReader::read(R"({"steps":[{"n":1}],"score":{"a":1}})").value.object());
  serverSide->execute(event);

  JXJsonObject parameters = instance->parameters;
  parameters.get("stores").array().append("changed");
  parameters.get("steps").array().at(0).object().set("n", "changed");
  parameters.get("items").array().at(0).object().get("jx_item_tags").array().append("changed");
  parameters.get("items").array().append("of the copy");
  parameters.set("score", "of the copy");
  parameters.set("own", "of the copy");

  serverSide->execute(event);
  JXJsonObject body = requests().back().body;
  for (const char* key : {"context", "user", "event_name"})
    body.remove(key);
  EXPECT_EQ(JXJsonWriter::write(body, JXJsonStyle::Compact).text,
            R"({"steps":[{"n":"changed"}],"score":{"a":1},"stores":["uk","changed"],)"
            R"("items":[{"tags":["a","changed"],"product":{"colors":[]}}]})");
  const Request next = execute(*serverSide, "next");
  EXPECT_EQ(next.body.get("stores").array().size(), 2u) << "the permanent data has changed too";
}

TEST_F(Execute, SharesIdListsOfPlaybackEventsWithFirebase) {
  start();
  const auto instance = std::make_shared<Instance>("logEventWithName:parameters:");
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(1, "k", instance);
  const auto event =
      JXVideoPlaybackEvent::initWithMode_andSessionId(EJXVideoPlaybackMode_START, "s");
  event->contentAssetID().append("a");
  serverSide->execute(event);
  instance->parameters.get("content_asset_id").array().append("changed");
  EXPECT_EQ(event->contentAssetID().size(), 2u);
}

TEST_F(Execute, DoesNotMirrorWhileDisabled) {
  start();
  const auto instance = std::make_shared<Instance>("logEventWithName:parameters:");
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(1, "k", 2,
                                                                                      instance);
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_TRUE(instance->calls.empty());
}

TEST_F(Execute, DoesNotMirrorToInstanceWithoutTheOperation) {
  start();
  const auto instance = std::make_shared<Instance>("setDefaultEventParameters:parameters:");
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(1, "k", instance);
  forgetLines();
  execute(*serverSide);
  EXPECT_EQ(instance->calls.size(), 1u) << "the developer ID at the start";
  EXPECT_TRUE(linesUpTo(5).empty());
}

TEST_F(Execute, SendsEventIfMirrorThrows) {
  start();
  const auto instance = std::make_shared<Instance>("logEventWithName:parameters:");
  instance->throws = true;
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(1, "k", instance);
  forgetLines();
  execute(*serverSide);
  EXPECT_EQ(linesUpTo(5).size(), 1u);
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("0"));
}

TEST_F(Execute, WritesTimeBeforeTheEpochAsUnsignedNumber) {
  clock->set(-5'000);
  const auto serverSide = make();
  EXPECT_EQ(context(execute(*serverSide)).get("event_timestamp").numberString(),
            JXString("18446744073709546616"));
  EXPECT_TRUE(linesUpTo(3).empty());
}

TEST_F(Execute, SendsEventIfLogSinkThrowsOrExecutes) {
  std::shared_ptr<ServerSide> serverSide;
  int depth = 0;
  configuration.logSink = [&](int level, std::string_view) {
    if (serverSide && level == 6 && depth == 0) {
      ++depth;
      serverSide->execute(JXCustomEvent::initWithName("from the sink"));
    }
    throw std::runtime_error("no disk");
  };
  serverSide = make();
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(requests().size(), 2u);
  configuration.logSink = nullptr;
  JXLogger::sharedInstance().setSink(nullptr);
}

TEST_F(Execute, NeverPostsHitSentNotification) {
  EXPECT_EQ(kJXNotification_HitSent, "JXNotification: Hit Sent");
  const auto serverSide = make();
  execute(*serverSide);
  EXPECT_TRUE(posted(kJXNotification_HitSent).empty());
}

TEST_F(Execute, StoresEventBeforeReturning) {
  queueForReal();
  const auto serverSide = make();
  execute(*serverSide);
  execute(*serverSide);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 2u);
}

}  // namespace
}  // namespace jx::test
