// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Variables and entries after the start-up, and the order in which its steps read and write.

#include <gmock/gmock.h>

#include "jx/core/JXApplication.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class VariableStartUp : public ServerSideFixture {
 protected:
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
};

TEST_F(VariableStartUp, SetsExactlyTheseVariables) {
  start();
  std::map<std::string, std::string> found;
  const JXJsonObject entries = variables().dynamicStore()->entries();
  for (const JXJsonEntry& entry : entries.entries())
    found[entry.key.toStdString()] = entry.value.string().toStdString();
  const std::map<std::string, std::string> expected = {
      {"#JX_LANGUAGE#", "en"},
      {"#JX_REGION#", "GB"},
      {"#JX_SYSNAME#", "ExampleOS"},
      {"#JX_SYSVERSION#", "17.4"},
      {"#JX_MODEL#", "ExampleTV6,2"},
      {"#JX_DEVICE#", "Example Television"},
      {"#JX_CHARSET#", "UTF-8"},
      {"#JX_CURRENCY_CODE#", "GBP"},
      {"#JX_CURRENCY_SYMBOL#", "\xC2\xA3"},
      {"#JX_APPLICATION_VERSION#", "1.0"},
      {"#JX_APPLICATION_PREVIOUS_VERSION#", "0"},
      {"#JX_APPLICATION_BUILD#", "100"},
      {"#JX_NORVANE_VERSION#", "5.4.5"},
      {"#JX_MANUFACTURER#", "Apple"},
      {"#JX_JAILBROKEN#", "0"},
      {"#JX_APPLICATION_STARTS#", "1"},
      {"#JX_FOREGROUNDS#", "1"},
      {"#JX_DELTA_BACKGROUND_TIME#", "0"},
      {"#JX_CURRENT_CALL_MS#", "1700000000000"},
      {"#JX_LAST_SESSION_START_MS#", "0"},
      {"#JX_LAST_SESSION_LAST_HIT_MS#", "0"},
      {"#JX_BUNDLE_IDENTIFIER#", "com.example.tv"},
      {"#JX_APPLICATION_NAME#", "Example TV"},
      {"#JX_RUNTIME_NAME#", "tvos"},
      {"#JX_SCREEN_HEIGHT#", "1080"},
      {"#JX_SCREEN_WIDTH#", "1920"},
      {"#JX_FIRST_VISIT_MS#", "1700000000000"},
      {"#JX_LAST_VISIT_MS#", "1700000000000"},
      {"#JX_CURRENT_SESSION_MS#", "1700000000000"},
      {"#JX_CURRENT_VISIT_MS#", "1700000000000"},
      {"#JX_VERSION_FIRST_VISIT_MS#", "1700000000000"},
      {"#JX_NUMBER_VISIT#", "1"},
      {"#JX_NUMBER_SESSION#", "1"},
      {"#JX_IS_FIRST_VISIT#", "TRUE"},
      {"#JX_SESSION_ID#", "00000000-0000-4000-8000-000000000003"},
      {"#JX_NEW_SESSION#", "1"},
      {"#JX_USER_SESSION_DURATION_MS#", "0"},
      {"#JX_USAGE_SESSION_DURATION_MS#", "0"},
      {"#JX_CS_START_IT#", "0"},
      {"#JX_CS_START_DIT#", "0"},
      {"#JX_CS_START_FT#", "0"},
      {"#JX_CS_START_DFT#", "0"},
      {"#JX_UNIQUE_ID#", "00000000-0000-4000-8000-000000000002"},
  };
  EXPECT_EQ(found, expected);
}

TEST_F(VariableStartUp, PersistsExactlyTheseEntries) {
  start();
  variables();
  const std::map<std::string, JXString> expected = {
      {"jx_unique_id", "00000000-0000-4000-8000-000000000002"},
      {"jx_date_first_visit", "1700000000"},
      {"jx_date_last_visit", "1700000000"},
      {"jx_date_current_visit", "1700000000"},
      {"jx_number_coldStarts", "1"},
      {"jx_number_sessions", "1"},
      {"#JX_APPLICATION_STARTS#", "1"},
      {"#JX_APPLICATION_VERSION#", "1.0"},
      {"#JX_VERSION_FIRST_VISIT_MS#", "1700000000000"},
      {"SessionStartTimestamp", "1700000000000"},
      {"LastSessionStartTimestamp", "0"},
      {"UsageDuration", "0"},
      {"#JX_SDK_ID#", "00000000-0000-4000-8000-000000000001"},
  };
  EXPECT_EQ(platform->defaults.entries(), expected);
}

TEST_F(VariableStartUp, ReportsPreviousVersionZeroEvenIfOneIsPersisted) {
  platform->defaults.preset("#JX_APPLICATION_PREVIOUS_VERSION#", "0.9");
  start();
  variables();
  EXPECT_EQ(variable("#JX_APPLICATION_PREVIOUS_VERSION#"), JXString("0"));
  EXPECT_EQ(platform->defaults.entries().at("#JX_APPLICATION_PREVIOUS_VERSION#"), JXString("0.9"));
  EXPECT_EQ(variable("#JX_FOREGROUNDS#"), JXString("1"));
  EXPECT_EQ(variable("#JX_DELTA_BACKGROUND_TIME#"), JXString("0"));
}

TEST_F(VariableStartUp, ChecksFirstVisitBeforeStoringTheVersion) {
  start();
  variables();
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("TRUE"))
      << "a later step writes the entry that is checked";
  EXPECT_TRUE(platform->defaults.entries().at("#JX_VERSION_FIRST_VISIT_MS#").testString());
}

TEST_F(VariableStartUp, CarriesLastCallOverBeforeSessionSetUp) {
  platform->defaults.preset("#JX_LAST_CALL_MS#", "1600000000000");
  platform->defaults.preset("SessionStartTimestamp", "1699999999000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("1600000000000"));
}

TEST_F(VariableStartUp, SetsLastHitToZeroOnFirstMeasuredStart) {
  platform->defaults.preset("#JX_LAST_CALL_MS#", "1600000000000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("0"))
      << "the session set-up runs later";
}

TEST_F(VariableStartUp, ReinitResetsVariablesAndAdvancesCounters) {
  start();
  JXPredefinedVariables& v = variables();
  v.addData_withValue("#MINE#", "lost");
  clock->advance(10'000);
  v.firstExecute();
  v.computeTimeChangingVariables();
  const auto listener = v.listenerDelegate();
  const auto store = v.dynamicStore();
  clock->advance(10'000);
  EXPECT_EQ(v.reinit(), &v);
  EXPECT_NE(v.dynamicStore(), store);
  EXPECT_NE(v.listenerDelegate(), listener);
  EXPECT_FALSE(variable("#MINE#").isPresent());
  EXPECT_FALSE(variable("#JX_FIRST_EXECUTE#").isPresent());
  EXPECT_EQ(v.totalForegroundTime(), 0u);
  EXPECT_EQ(v.totalForegroundTransitions(), 1);
  EXPECT_EQ(v.lastTime(), 1'700'000'020'000u);
  EXPECT_EQ(variable("#JX_APPLICATION_STARTS#"), JXString("2"));
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("FALSE"));
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000020000"));
}

TEST_F(VariableStartUp, ReinitKeepsBackgroundState) {
  start();
  JXPredefinedVariables& v = variables();
  v.didEnterBackground({});
  v.reinit();
  EXPECT_TRUE(v.isBackground());
  clock->advance(1'000);
  v.willEnterForeground({});
  EXPECT_EQ(v.totalForegroundTransitions(), 2);
  EXPECT_EQ(v.totalBackgroundTime(), 1'000u);
}

TEST_F(VariableStartUp, FirstReinitCountsVisitAndSecondDoesNot) {
  start();
  JXPredefinedVariables& v = variables();
  EXPECT_EQ(platform->defaults.entries().count("jx_last_pid"), 0u) << "the pid is not known yet";
  clock->advance(1'000);
  v.reinit();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("2"));
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
  EXPECT_EQ(variable("#JX_CURRENT_VISIT_MS#"), JXString("1700000001000"));
  EXPECT_EQ(platform->defaults.entries().at("jx_last_pid"), JXString("4242"));
  clock->advance(1'000);
  v.reinit();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("2"));
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
  EXPECT_EQ(variable("#JX_CURRENT_VISIT_MS#"), JXString("1700000001000"));
  EXPECT_EQ(variable("#JX_CURRENT_SESSION_MS#"), JXString("1700000001000"));
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1700000000"));
  EXPECT_EQ(variable("#JX_APPLICATION_STARTS#"), JXString("3"));
}

TEST_F(VariableStartUp, ReinitCountsVisitIfPidBelongsToAnotherProcess) {
  start();
  JXPredefinedVariables& v = variables();
  v.reinit();
  platform->defaults.preset("jx_last_pid", "4243");
  v.reinit();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("3"));
}

TEST_F(VariableStartUp, ProcessStartCountsVisitEvenWithPersistedOwnPid) {
  platform->defaults.preset("jx_date_first_visit", "1600000000");
  platform->defaults.preset("jx_last_pid", "4242");
  platform->defaults.preset("jx_number_coldStarts", "6");
  start();
  variables();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("7"));
  EXPECT_EQ(platform->defaults.entries().count("jx_last_pid"), 0u);
}

TEST_F(VariableStartUp, ReinitHandlesEachNotificationTwice) {
  start();
  JXPredefinedVariables& v = variables();
  v.reinit();
  clock->advance(1'000);
  JXApplication::applicationDidEnterBackground();
  EXPECT_EQ(platform->defaults.setCount("ExitTimestamp"), 2);
  clock->advance(1'000);
  JXApplication::applicationWillEnterForeground();
  EXPECT_EQ(v.totalForegroundTransitions(), 2) << "the second handler finds it in the foreground";
  EXPECT_EQ(platform->defaults.entries().at("TimeSinceLastMeasurement"), JXString("0"))
      << "the second handler measures from the first";
}

TEST_F(VariableStartUp, ReinitStillStoresUserAgent) {
  start();
  JXPredefinedVariables& v = variables();
  v.reinit();
  JXJsonObject userInfo;
  userInfo.set(kJXUserInfo_DataKey, "Agent/1");
  JXNotificationCenter::defaultCenter()->postNotification(
      {kJXNotification_UserAgentAvailable, nullptr, userInfo});
  EXPECT_EQ(variable("#JX_USER_AGENT#"), JXString("Agent/1"));
}

TEST_F(VariableStartUp, ListenerMayOutliveItsObject) {
  start();
  std::shared_ptr<JXEventListener> listener;
  {
    JXPredefinedVariables mine;
    ASSERT_EQ(mine.init(), &mine);
    listener = mine.listenerDelegate();
  }
  EXPECT_EQ(inLaunch([]() -> std::string {
              JXJsonObject userInfo;
              // Too long for the small-string buffer, so that a write to a destroyed object
              // accesses freed memory.
              userInfo.set(kJXUserInfo_DataKey, std::string(4'000, 'a'));
              JXNotificationCenter::defaultCenter()->postNotification(
                  {kJXNotification_UserAgentAvailable, nullptr, userInfo});
              return "alive";
            }),
            "alive");
}

TEST_F(VariableStartUp, DestroyedObjectReceivesNoNotifications) {
  start();
  {
    JXPredefinedVariables mine;
    ASSERT_EQ(mine.init(), &mine);
  }
  const int writes = platform->defaults.setCount();
  JXApplication::applicationDidEnterBackground();
  EXPECT_EQ(platform->defaults.setCount(), writes);
}

}  // namespace
}  // namespace jx::test
