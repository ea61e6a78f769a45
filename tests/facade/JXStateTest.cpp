// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXState.h"

#include <gmock/gmock.h>

#include "jx/core/JXApplication.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/facade/JXServerSideInitialisation.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::ElementsAre;

class ApplicationState : public ServerSideFixture {
 protected:
  std::size_t backgrounds() const { return posted(kJXNotification_OnBackground).size(); }
  std::size_t foregrounds() const { return posted(kJXNotification_OnForeground).size(); }
};

class BaselessState final : public JXState {
 protected:
  bool baseInit() override { return false; }
};

class RecordingState final : public JXState {
 public:
  void didEnterBackground(const void* application) override {
    calls.push_back({"background", application});
  }
  void willEnterForeground(const void* application) override {
    calls.push_back({"foreground", application});
  }
  std::vector<std::pair<std::string, const void*>> calls;
};

TEST_F(ApplicationState, PostsBackgroundTransitionOnce) {
  const auto serverSide = make();
  platform->enterBackground();
  const auto notifications = posted(kJXNotification_OnBackground);
  ASSERT_EQ(notifications.size(), 1u);
  EXPECT_EQ(notifications[0].object, &JXState::sharedInstance());
  EXPECT_FALSE(notifications[0].userInfo.isPresent());
  EXPECT_EQ(foregrounds(), 0u);
}

TEST_F(ApplicationState, PostsForegroundTransitionOnce) {
  const auto serverSide = make();
  platform->enterForeground();
  const auto notifications = posted(kJXNotification_OnForeground);
  ASSERT_EQ(notifications.size(), 1u);
  EXPECT_EQ(notifications[0].object, &JXState::sharedInstance());
  EXPECT_FALSE(notifications[0].userInfo.isPresent());
  EXPECT_EQ(backgrounds(), 0u);
}

TEST_F(ApplicationState, PostsThroughItsOwnSender) {
  const auto serverSide = make();
  EXPECT_NE(JXState::sharedInstance().senderDelegate(), serverSide->senderDelegate());
  EXPECT_EQ(JXState::sharedInstance().senderDelegate()->parent(), &JXState::sharedInstance());
  const auto center = std::make_shared<JXNotificationCenter>();
  serverSide->changeNotificationCenter(center);
  platform->enterBackground();
  EXPECT_EQ(backgrounds(), 1u) << "the state does not use the centre of the ServerSide";
  JXState::sharedInstance().changeNotificationCenter(std::make_shared<JXNotificationCenter>());
  platform->enterBackground();
  EXPECT_EQ(backgrounds(), 1u) << "the state posts on another centre";
  JXState::sharedInstance().changeNotificationCenter(nullptr);
  platform->enterBackground();
  EXPECT_EQ(backgrounds(), 2u);
}

TEST_F(ApplicationState, PostsTransitionsReportedByTheApplication) {
  const auto serverSide = make();
  JXApplication::applicationDidEnterBackground();
  JXApplication::applicationWillEnterForeground();
  EXPECT_EQ(backgrounds(), 1u);
  EXPECT_EQ(foregrounds(), 1u);
}

TEST_F(ApplicationState, NotifiesNetworkManagerFromAnyCentre) {
  queueForReal();
  const auto serverSide = make();
  JXState::sharedInstance().changeNotificationCenter(std::make_shared<JXNotificationCenter>());
  platform->enterBackground();
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
  platform->enterForeground();
  EXPECT_FALSE(JXNetworkManager::sharedInstance().counters().paused);
}

TEST_F(ApplicationState, SecondInitChangesNothing) {
  const auto serverSide = make();
  JXState& state = JXState::sharedInstance();
  const auto sender = state.senderDelegate();
  EXPECT_EQ(state.init(), &state);
  EXPECT_EQ(state.senderDelegate(), sender);
  platform->enterBackground();
  EXPECT_EQ(backgrounds(), 1u);
}

TEST_F(ApplicationState, ReinitPostsEachTransitionAgain) {
  const auto serverSide = make();
  JXState& state = JXState::sharedInstance();
  const auto sender = state.senderDelegate();
  EXPECT_EQ(state.reinit(), &state);
  EXPECT_NE(state.senderDelegate(), sender);
  platform->enterBackground();
  platform->enterForeground();
  EXPECT_EQ(backgrounds(), 2u);
  EXPECT_EQ(foregrounds(), 2u);
  state.reinit();
  platform->enterBackground();
  EXPECT_EQ(backgrounds(), 5u);
}

TEST_F(ApplicationState, InitLeavesSecondInstanceUnchanged) {
  const auto serverSide = make();
  JXState other;
  EXPECT_EQ(other.init(), &other);
  EXPECT_EQ(other.senderDelegate(), nullptr);
  other.changeNotificationCenter(nullptr);
  other.applicationDidEnterBackground({});
  EXPECT_EQ(backgrounds(), 0u);
}

TEST_F(ApplicationState, CallsHooksWithTheObjectBeforeNotifyingTheCore) {
  start();
  RecordingState state;
  ASSERT_EQ(state.init(), &state);
  const int application = 0;
  std::size_t callsBefore = 0;
  JXNotificationCenter::defaultCenter()->addObserver(
      &callsBefore, kJXNotification_OnBackground,
      [&](const JXNotification&) { callsBefore = state.calls.size(); });
  JXNotificationCenter::defaultCenter()->postNotification(
      {UIApplicationDidEnterBackgroundNotification, &application});
  JXNotificationCenter::defaultCenter()->postNotification(
      {UIApplicationWillEnterForegroundNotification, &application});
  JXNotificationCenter::defaultCenter()->removeObserver(&callsBefore);
  EXPECT_EQ(callsBefore, 1u);
  ASSERT_EQ(state.calls.size(), 2u);
  EXPECT_EQ(state.calls[0].first, "background");
  EXPECT_EQ(state.calls[0].second, &application);
  EXPECT_EQ(state.calls[1].first, "foreground");
  EXPECT_EQ(state.calls[1].second, &application);
}

TEST_F(ApplicationState, DestroyedObjectReceivesNoNotifications) {
  start();
  {
    JXState state;
    state.init();
  }
  JXApplication::applicationDidEnterBackground();
  EXPECT_EQ(backgrounds(), 0u);
}

TEST_F(ApplicationState, ReadsDateFromCoreClock) {
  start();
  EXPECT_EQ(JXState::sharedInstance().date().time_since_epoch(),
            std::chrono::milliseconds(1'700'000'000'000));
}

TEST_F(ApplicationState, InitReturnsNullAndBlocksLaterCallsIfBaseFails) {
  start();
  BaselessState state;
  EXPECT_TRUE(neverReturns([&] { ASSERT_EQ(state.init(), nullptr); }, [&] { state.init(); }));
  EXPECT_TRUE(neverReturns([&] { state.init(); }, [] { JXState::sharedInstance(); }))
      << "the guard belongs to the class";
}

TEST_F(ApplicationState, ReinitSucceedsAfterFailedInit) {
  start();
  BaselessState failed;
  ASSERT_EQ(failed.init(), nullptr);
  JXState state;
  EXPECT_EQ(state.reinit(), &state);
  JXApplication::applicationDidEnterBackground();
  EXPECT_EQ(backgrounds(), 1u);
}

class StartOrder : public ServerSideFixture {};

TEST_F(StartOrder, CopiesCoreVariablesToPredefinedVariables) {
  start();
  const auto initialisation = JXServerSideInitialisation::init();
  EXPECT_NE(initialisation, nullptr);
  EXPECT_EQ(variable("#JX_SDK_ID#"), JXString("00000000-0000-4000-8000-000000000001"));
}

TEST_F(StartOrder, StartsCoreThenStateThenVariables) {
  // The core creates the user's identifier before the variables create the unique identifier. The
  // state observes the application's notifications before the variables do.
  const auto serverSide = make();
  EXPECT_EQ(platform->defaults.entries().at("jx_unique_id"),
            JXString("00000000-0000-4000-8000-000000000003"));
  bool wasBackground = true;
  JXNotificationCenter::defaultCenter()->addObserver(
      &wasBackground, kJXNotification_OnBackground, [&](const JXNotification&) {
        wasBackground = JXPredefinedVariables::sharedInstance().isBackground();
      });
  platform->enterBackground();
  JXNotificationCenter::defaultCenter()->removeObserver(&wasBackground);
  EXPECT_FALSE(wasBackground) << "the core is notified before the variables change";
  EXPECT_TRUE(JXPredefinedVariables::sharedInstance().isBackground());
}

TEST_F(StartOrder, SecondServerSideOnlyCopiesCoreVariablesAgain) {
  const auto first = make();
  const int writes = platform->defaults.setCount();
  JXCoreVariables::sharedInstance().addData_withValue("#CORE#", "later");
  EXPECT_FALSE(variable("#CORE#").isPresent());
  const auto second = make();
  EXPECT_EQ(variable("#CORE#"), JXString("later"));
  EXPECT_NE(first->initialisation(), second->initialisation());
  EXPECT_EQ(variable(kJXPredefinedVariable_NumberVisits), JXString("1"));
  EXPECT_EQ(platform->defaults.setCount(), writes);
  EXPECT_EQ(platform->observeCount(), 1);
  platform->enterBackground();
  EXPECT_EQ(posted(kJXNotification_OnBackground).size(), 1u);
}

TEST_F(StartOrder, EachServerSideSendsToItsOwnUrl) {
  const auto first = make();
  const auto second = ServerSide::initWithSiteID_andSourceKey(5678, "other");
  EXPECT_EQ(execute(*first).url,
            JXString("https://collect.example.com/events?jx_s=1234&token=key"));
  EXPECT_EQ(execute(*second).url,
            JXString("https://collect.example.com/events?jx_s=5678&token=other"));
  EXPECT_EQ(requests().size(), 2u);
}

TEST_F(ApplicationState, PassesTheApplicationObjectOfTheSystem) {
  const auto serverSide = make();
  const int application = 0;
  platform->application = &application;
  platform->enterBackground();
  platform->enterForeground();
  JXApplication::applicationDidEnterBackground();
  const auto entered = posted(UIApplicationDidEnterBackgroundNotification);
  ASSERT_EQ(entered.size(), 2u);
  EXPECT_EQ(entered[0].object, &application);
  EXPECT_EQ(entered[1].object, nullptr) << "the application passes none";
  const auto left = posted(UIApplicationWillEnterForegroundNotification);
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].object, &application);
}

}  // namespace
}  // namespace jx::test
