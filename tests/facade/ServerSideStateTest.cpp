// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The state of a ServerSide: every transition, and every path of a notification.

#include <gmock/gmock.h>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::ElementsAre;

const LogLine kActivated{5, "Server-Side SDK is now activated"};
const LogLine kDeactivated{5, "Server-Side SDK is now deactivated"};

class ServerSideState : public ServerSideFixture {
 protected:
  static void post(std::string_view name) {
    JXNotificationCenter::defaultCenter()->postNotification({name});
  }
  void expectChange(std::int32_t behaviour, std::int32_t from, std::string_view name,
                    std::int32_t to, const std::vector<LogLine>& log) {
    const auto serverSide = make(behaviour);
    serverSide->setServerSideState(from);
    forgetLines();
    post(name);
    EXPECT_EQ(serverSide->serverSideState(), to);
    EXPECT_EQ(lines(), log);
  }
};

class EveryState : public ServerSideState, public ::testing::WithParamInterface<std::int32_t> {};

TEST_P(EveryState, AlwaysEnabledIgnoresStop) {
  expectChange(1, GetParam(), kJXNotification_StoppingTheServerSide, GetParam(), {});
}

TEST_P(EveryState, StopDisablesDefault) {
  expectChange(0, GetParam(), kJXNotification_StoppingTheServerSide, 2, {kDeactivated});
}

TEST_P(EveryState, StopDisablesDisabledByDefault) {
  expectChange(2, GetParam(), kJXNotification_StoppingTheServerSide, 2, {kDeactivated});
}

TEST_P(EveryState, EnablingEnablesDefault) {
  expectChange(0, GetParam(), kJXNotification_EnablingTheServerSide, 1, {kActivated});
}

TEST_P(EveryState, EnablingEnablesAlwaysEnabled) {
  expectChange(1, GetParam(), kJXNotification_EnablingTheServerSide, 1, {kActivated});
}

TEST_P(EveryState, EnablingEnablesDisabledByDefault) {
  expectChange(2, GetParam(), kJXNotification_EnablingTheServerSide, 1, {kActivated});
}

TEST_P(EveryState, IgnoresOtherNotifications) {
  expectChange(0, GetParam(), kJXNotification_HitSent, GetParam(), {});
}

TEST_P(EveryState, HandlerIgnoresOtherNames) {
  const auto serverSide = make();
  serverSide->setServerSideState(GetParam());
  forgetLines();
  serverSide->onNotificationReceived({kJXNotification_OnBackground});
  serverSide->onNotificationReceived({nullptr});
  EXPECT_EQ(serverSide->serverSideState(), GetParam());
  EXPECT_TRUE(lines().empty());
}

INSTANTIATE_TEST_SUITE_P(From, EveryState, ::testing::Values(0, 1, 2));

TEST_F(ServerSideState, LogsRepeatedNotifications) {
  const auto serverSide = make();
  forgetLines();
  post(kJXNotification_StoppingTheServerSide);
  post(kJXNotification_StoppingTheServerSide);
  post(kJXNotification_EnablingTheServerSide);
  post(kJXNotification_EnablingTheServerSide);
  EXPECT_THAT(lines(), ElementsAre(kDeactivated, kDeactivated, kActivated, kActivated));
}

TEST_F(ServerSideState, EnableServerSidePostsUserBlock) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make();
  JXUser::sharedInstance().setConsentID("c-1");
  serverSide->enableServerSide();
  const auto sent = posted(kJXNotification_EnablingTheServerSide);
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0].object, serverSide.get());
  ASSERT_EQ(sent[0].userInfo.size(), 1u);
  const JXJsonObject user = sent[0].userInfo.get(kJXUserInfo_POSTData).object();
  EXPECT_EQ(JXJsonWriter::write(user, JXJsonStyle::Compact).text,
            R"({"anonymous_id":"00000000-0000-4000-8000-000000000002","consent_id":"c-1"})");
  EXPECT_EQ(serverSide->serverSideState(), 1);
}

TEST_F(ServerSideState, DisableServerSidePostsStopWithoutUserInfo) {
  const auto serverSide = make();
  serverSide->disableServerSide();
  const auto sent = posted(kJXNotification_StoppingTheServerSide);
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0].object, serverSide.get());
  EXPECT_FALSE(sent[0].userInfo.isPresent());
  EXPECT_EQ(serverSide->serverSideState(), 2);
}

TEST_F(ServerSideState, AlwaysEnabledPostsNoStopAndIgnoresOthers) {
  const auto serverSide = make(1);
  serverSide->disableServerSide();
  EXPECT_TRUE(posted(kJXNotification_StoppingTheServerSide).empty());
  post(kJXNotification_StoppingTheServerSide);
  EXPECT_EQ(serverSide->serverSideState(), 1);
  execute(*serverSide);
}

TEST_F(ServerSideState, DisabledByDefaultIgnoresEventsUntilEnabled) {
  const auto serverSide = make(2);
  serverSide->execute(JXCustomEvent::initWithName("lost"));
  EXPECT_TRUE(requests().empty());
  serverSide->enableServerSide();
  EXPECT_EQ(serverSide->serverSideState(), 1);
  EXPECT_EQ(execute(*serverSide, "kept").body.get("event_name").string(), JXString("kept"));
}

TEST_F(ServerSideState, ReceivesEachChangeOnceThroughAnotherCentre) {
  const auto serverSide = make();
  const auto center = std::make_shared<JXNotificationCenter>();
  record(center);
  serverSide->changeNotificationCenter(center);
  forgetLines();
  serverSide->disableServerSide();
  EXPECT_EQ(serverSide->serverSideState(), 2);
  serverSide->enableServerSide();
  EXPECT_EQ(serverSide->serverSideState(), 1);
  EXPECT_THAT(lines(), ElementsAre(kDeactivated, kActivated));
  EXPECT_EQ(posted(kJXNotification_StoppingTheServerSide).size(), 1u) << "on its centre only";
}

TEST_F(ServerSideState, ChangingTheCentreKeepsListeningOnTheDefaultOne) {
  const auto serverSide = make();
  serverSide->changeNotificationCenter(std::make_shared<JXNotificationCenter>());
  post(kJXNotification_StoppingTheServerSide);
  EXPECT_EQ(serverSide->serverSideState(), 2);
}

TEST_F(ServerSideState, NullCentrePostsOnTheDefaultOne) {
  const auto serverSide = make();
  serverSide->changeNotificationCenter(std::make_shared<JXNotificationCenter>());
  serverSide->execute(JXCustomEvent::initWithName("elsewhere"));
  EXPECT_TRUE(requests().empty());
  serverSide->changeNotificationCenter(nullptr);
  execute(*serverSide);
}

TEST_F(ServerSideState, StopDisablesEveryServerSide) {
  const auto first = make();
  const auto second = make();
  const auto alwaysEnabled = make(1);
  first->disableServerSide();
  EXPECT_EQ(second->serverSideState(), 2);
  EXPECT_EQ(alwaysEnabled->serverSideState(), 1);
}

TEST_F(ServerSideState, DestroyedServerSideReceivesNoNotifications) {
  auto serverSide = make();
  serverSide.reset();
  forgetLines();
  post(kJXNotification_StoppingTheServerSide);
  EXPECT_TRUE(lines().empty());
}

TEST_F(ServerSideState, ListenerMayOutliveItsServerSide) {
  auto serverSide = make();
  const auto listener = serverSide->listenerDelegate();
  const auto sender = serverSide->senderDelegate();
  serverSide.reset();
  forgetLines();
  post(kJXNotification_StoppingTheServerSide);
  sender->send({kJXNotification_EnablingTheServerSide});
  EXPECT_TRUE(lines().empty());
  EXPECT_EQ(sender->parent(), nullptr);
}

TEST_F(ServerSideState, EnableRunningInBackgroundIsStoredAndLogged) {
  const auto serverSide = make();
  forgetLines();
  serverSide->enableRunningInBackground();
  EXPECT_TRUE(JXCoreVariables::sharedInstance().enableSDKInBG());
  EXPECT_THAT(lines(),
              ElementsAre(LogLine{5, "Server-Side SDK is now enabled to run in background"}));
}

TEST_F(ServerSideState, EnableRunningInBackgroundResumesDelivery) {
  queueForReal();
  const auto serverSide = make();
  platform->enterBackground();
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
  serverSide->enableRunningInBackground();
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
}

TEST_F(ServerSideState, WaitForUserAgentPausesDeliveryUntilItIsKnown) {
  queueForReal();
  platform->userAgentAnswersLater = true;
  const auto serverSide = make();
  serverSide->waitForUserAgent();
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
  EXPECT_EQ(platform->answerUserAgent("Agent/2"), 1);
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("Agent/2"));
}

TEST_F(ServerSideState, StopPausesDeliveryAndEnablingResumesIt) {
  queueForReal();
  const auto serverSide = make();
  serverSide->disableServerSide();
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
  serverSide->enableServerSide();
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
}

TEST_F(ServerSideState, CoreVariableAllowsDeliveryInBackgroundAndRevokesIt) {
  queueForReal();
  const auto serverSide = make();
  platform->enterBackground();
  JXCoreVariables::sharedInstance().setEnableSDKInBG(true);
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
  JXCoreVariables::sharedInstance().setEnableSDKInBG(false);
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
  platform->enterForeground();
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
}

TEST_F(ServerSideState, CoreVariableRevokesEnableRunningInBackground) {
  queueForReal();
  const auto serverSide = make();
  serverSide->enableRunningInBackground();
  JXCoreVariables::sharedInstance().setEnableSDKInBG(false);
  platform->enterBackground();
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
}

TEST_F(ServerSideState, WaitForUserAgentRequestsItInADryRun) {
  platform->userAgentAnswersLater = true;
  const auto serverSide = make();
  serverSide->waitForUserAgent();
  EXPECT_EQ(platform->userAgentRequestCount(), 1);
  EXPECT_TRUE(posted(kJXNotification_UserAgentAvailable).empty());
  EXPECT_EQ(platform->answerUserAgent("Agent/2"), 1);
  const auto notifications = posted(kJXNotification_UserAgentAvailable);
  ASSERT_EQ(notifications.size(), 1u);
  EXPECT_EQ(notifications[0].userInfo.get(kJXUserInfo_DataKey).string(), JXString("Agent/2"));
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("Agent/2"));
}

// Creates a ServerSide when the user agent is announced during the start of another one.
std::shared_ptr<ServerSide> createdByAnObserver(const std::function<void()>& start) {
  std::shared_ptr<ServerSide> created;
  JXNotificationCenter::defaultCenter()->addObserver(
      &created, kJXNotification_UserAgentAvailable, [&created](const JXNotification&) {
        if (!created) created = ServerSide::initWithSiteID_andSourceKey(2, "second");
      });
  JXNetworkManager::sharedInstance().waitForUserAgent();
  start();
  JXNotificationCenter::defaultCenter()->removeObserver(&created);
  return created;
}

TEST_F(ServerSideState, ObserverOfTheUserAgentMayCreateAServerSideDuringTheStart) {
  queueForReal();
  const auto second = createdByAnObserver([this] { make(); });
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(platform->userAgentRequestCount(), 1);
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
  second->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.added, 1u);
}

TEST_F(ServerSideState, ObserverOfTheUserAgentMayCreateAServerSideDuringADryRunStart) {
  EXPECT_NE(createdByAnObserver([this] { make(); }), nullptr);
  EXPECT_EQ(platform->userAgentRequestCount(), 1);
}

TEST_F(ServerSideState, WaitForUserAgentBeforeADryRunStartsIsHonoured) {
  JXNetworkManager::sharedInstance().waitForUserAgent();
  EXPECT_EQ(platform->userAgentRequestCount(), 0);
  const auto serverSide = make();
  EXPECT_EQ(platform->userAgentRequestCount(), 1);
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), platform->userAgent);
}

}  // namespace
}  // namespace jx::test
