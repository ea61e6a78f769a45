// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Visits, sessions and calls within one process; persisted values of earlier processes are preset.

#include <gmock/gmock.h>

#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class Visits : public ServerSideFixture {
 protected:
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
  void preset(const std::string& key, const JXString& value) {
    platform->defaults.preset(key, value);
  }
  /// Returns the persisted string; null if there is none.
  JXString persisted(const std::string& key) { return platform->defaults.objectForKey(key); }
  /// Presets the values persisted by a process that started at 1600000000000 and executed no event.
  void presetEarlierLaunch() {
    preset("jx_date_first_visit", "1600000000");
    preset("jx_date_last_visit", "1600000000");
    preset("jx_date_current_visit", "1600000000");
    preset("jx_number_coldStarts", "1");
    preset("jx_number_sessions", "1");
  }
  void longBackground() {
    platform->enterBackground();
    clock->advance(1'800'001);
    platform->enterForeground();
  }
};

TEST_F(Visits, FirstLaunchSetsAllFirstValues) {
  start();
  variables();
  for (const char* key : {"#JX_FIRST_VISIT_MS#", "#JX_LAST_VISIT_MS#", "#JX_CURRENT_VISIT_MS#",
                          "#JX_CURRENT_SESSION_MS#"})
    EXPECT_EQ(variable(key), JXString("1700000000000")) << key;
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("1"));
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("1"));
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("TRUE"));
  EXPECT_EQ(variable("#JX_APPLICATION_STARTS#"), JXString("1"));
  for (const char* key : {"jx_date_first_visit", "jx_date_last_visit", "jx_date_current_visit"})
    EXPECT_EQ(persisted(key), JXString("1700000000")) << key << " is in seconds";
}

TEST_F(Visits, NextLaunchIncrementsVisitAndSession) {
  presetEarlierLaunch();
  start();
  variables();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("2"));
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
  EXPECT_EQ(variable("#JX_FIRST_VISIT_MS#"), JXString("1600000000"));
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1600000000"));
  EXPECT_EQ(variable("#JX_CURRENT_VISIT_MS#"), JXString("1700000000000"));
  EXPECT_EQ(variable("#JX_CURRENT_SESSION_MS#"), JXString("1700000000000"));
  EXPECT_EQ(persisted("jx_number_coldStarts"), JXString("2"));
  EXPECT_EQ(persisted("jx_number_sessions"), JXString("2"));
  EXPECT_EQ(persisted("jx_date_first_visit"), JXString("1600000000"));
  EXPECT_EQ(persisted("jx_date_last_visit"), JXString("1600000000"));
  EXPECT_EQ(persisted("jx_date_current_visit"), JXString("1700000000000"));
}

TEST_F(Visits, UseFirstVisitIfCurrentVisitIsNotPersisted) {
  preset("jx_date_first_visit", "1600000000");
  preset("jx_date_last_visit", "1650000000000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1600000000"));
  EXPECT_EQ(persisted("jx_date_last_visit"), JXString("1600000000"));
}

TEST_F(Visits, UseCurrentVisitIfLastVisitIsNotPersisted) {
  preset("jx_date_first_visit", "1600000000");
  preset("jx_date_current_visit", "1650000000000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1650000000000"));
}

TEST_F(Visits, EmptyFirstVisitIsNotTheFirstVisit) {
  preset("jx_date_first_visit", "");
  start();
  variables();
  EXPECT_EQ(variable("#JX_FIRST_VISIT_MS#"), JXString(""));
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("1"));
}

struct Count {
  const char* stored;
  const char* next;
};

class StoredCounts : public Visits, public ::testing::WithParamInterface<Count> {};

TEST_P(StoredCounts, IncrementVisits) {
  presetEarlierLaunch();
  preset("jx_number_coldStarts", GetParam().stored);
  start();
  variables();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("jx_number_coldStarts"), JXString(GetParam().next));
}

TEST_P(StoredCounts, IncrementSessionsAtNewVisit) {
  presetEarlierLaunch();
  preset("jx_number_sessions", GetParam().stored);
  start();
  variables();
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("jx_number_sessions"), JXString(GetParam().next));
}

TEST_P(StoredCounts, IncrementSessionsAtNewSession) {
  const auto serverSide = make();
  preset("jx_number_sessions", GetParam().stored);
  longBackground();
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("jx_number_sessions"), JXString(GetParam().next));
}

TEST_P(StoredCounts, IncrementProcessStarts) {
  preset("#JX_APPLICATION_STARTS#", GetParam().stored);
  start();
  variables();
  EXPECT_EQ(variable("#JX_APPLICATION_STARTS#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("#JX_APPLICATION_STARTS#"), JXString(GetParam().next));
}

// Counts are 32-bit integers stored as strings. A larger one wraps around and never prevents the
// start.
INSTANTIATE_TEST_SUITE_P(From, StoredCounts,
                         ::testing::Values(Count{nullptr, "1"}, Count{"", "1"}, Count{"41", "42"},
                                           Count{"abc", "1"}, Count{"12abc", "13"},
                                           Count{" 7", "8"}, Count{"-5", "-4"}, Count{"-1", "0"},
                                           Count{"2147483647", "-2147483648"},
                                           Count{"999999999999999999999999999999", "0"}));

TEST_F(Visits, KeepStoredUniqueIdentifier) {
  preset("jx_unique_id", "A0000000-0000-4000-8000-000000000000");
  start();
  EXPECT_EQ(variables().uniqueIdentifier(), JXString("A0000000-0000-4000-8000-000000000000"));
  EXPECT_EQ(platform->defaults.setCount("jx_unique_id"), 0);
  EXPECT_EQ(platform->uuidCount(), 3) << "a new one is created anyway";
  EXPECT_EQ(platform->defaults.synchronizeCount(), 1);
}

TEST_F(Visits, CreateUniqueIdentifierForNewInstallation) {
  start();
  EXPECT_EQ(variables().uniqueIdentifier(), JXString("00000000-0000-4000-8000-000000000002"));
  EXPECT_EQ(persisted("jx_unique_id"), JXString("00000000-0000-4000-8000-000000000002"));
  EXPECT_EQ(platform->defaults.synchronizeCount(), 1);
}

TEST_F(Visits, FirstEventEverReportsItsOwnTimeAsLastCall) {
  const auto serverSide = make();
  clock->advance(3'000);
  execute(*serverSide);
  EXPECT_EQ(variable("#JX_LAST_CALL_MS#"), JXString("1700000003000"));
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000003000"));
  EXPECT_EQ(persisted("#JX_LAST_CALL_MS#"), JXString("1700000003000"));
}

TEST_F(Visits, FirstEventReportsLastCallOfEarlierProcess) {
  preset("#JX_LAST_CALL_MS#", "1650000000000");
  const auto serverSide = make();
  clock->advance(3'000);
  execute(*serverSide);
  EXPECT_EQ(variable("#JX_LAST_CALL_MS#"), JXString("1650000000000"));
  clock->advance(2'000);
  execute(*serverSide);
  EXPECT_EQ(variable("#JX_LAST_CALL_MS#"), JXString("1700000003000"));
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000005000"));
  EXPECT_EQ(persisted("#JX_LAST_CALL_MS#"), JXString("1700000005000"));
}

TEST_F(Visits, LongBackgroundStartsSessionWithinTheVisit) {
  presetEarlierLaunch();
  const auto serverSide = make();
  clock->advance(1'000);
  execute(*serverSide);
  const JXString before = variable("#JX_SESSION_ID#");
  longBackground();
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("3"));
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString("2"));
  EXPECT_EQ(variable("#JX_NEW_SESSION#"), JXString("1"));
  EXPECT_NE(variable("#JX_SESSION_ID#"), before);
  EXPECT_EQ(variable("#JX_SESSION_ID#").size(), 36u);
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("1700000001000"));
  EXPECT_EQ(variable("#JX_CURRENT_SESSION_MS#"), JXString("1700001801001"));
  EXPECT_EQ(persisted("jx_date_current_visit"), JXString("1700001801001"));
  EXPECT_EQ(variable("#JX_CURRENT_VISIT_MS#"), JXString("1700000000000"));
}

TEST_F(Visits, NewSessionReportsProcessStartAsLastHitWithoutEvents) {
  const auto serverSide = make();
  clock->advance(1'000);
  longBackground();
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("1700000000000"));
}

TEST_F(Visits, NewSessionReportsLastEventOfTheProcessAsLastHit) {
  const auto serverSide = make();
  clock->advance(1'000);
  execute(*serverSide);
  longBackground();
  longBackground();
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("3"));
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("1700000001000"))
      << "the session in between has no event";
}

TEST_F(Visits, SessionAndVisitStartDifferAfterNewSession) {
  const auto serverSide = make();
  EXPECT_EQ(variables().timestampCurrentVisitMs(), variables().nav_TimestampCurrentVisitMs());
  longBackground();
  EXPECT_EQ(variables().timestampCurrentVisitMs(), JXString("1700001800001"));
  EXPECT_EQ(variables().nav_TimestampCurrentVisitMs(), JXString("1700000000000"));
}

TEST_F(Visits, OnlyFirstEventOfSessionCarriesNewSessionMark) {
  const auto serverSide = make();
  execute(*serverSide);
  longBackground();
  EXPECT_TRUE(lifecycle(execute(*serverSide)).get("new_session").boolValue());
  EXPECT_FALSE(lifecycle(execute(*serverSide)).get("new_session").boolValue());
}

TEST_F(Visits, SessionDurationAddsUsageToTimeSinceVisitStart) {
  preset("SessionStartTimestamp", "1699999999000");
  preset("UsageDuration", "700");
  const auto serverSide = make();
  clock->advance(5'000);
  execute(*serverSide);
  EXPECT_EQ(variable("#JX_SESSION_DURATION_MS#"), JXString("5700"));
}

struct Start {
  const char* visit;
  const char* duration;
};

class SessionDuration : public Visits, public ::testing::WithParamInterface<Start> {};

TEST_P(SessionDuration, IsUnsignedAndWrapsAround) {
  start();
  variables().addData_withValue("#JX_CURRENT_VISIT_MS#", GetParam().visit);
  variables().setSessionDuration("1700000000000");
  EXPECT_EQ(variable("#JX_SESSION_DURATION_MS#"), JXString(GetParam().duration));
}

INSTANTIATE_TEST_SUITE_P(
    From, SessionDuration,
    ::testing::Values(Start{"1699999995000", "5000"},
                      Start{"1700000000001", "18446744073709551615"},
                      Start{"1700000001000", "18446744073709550616"}, Start{"1699999999999.9", "1"},
                      Start{"1.6e12", "100000000000"}, Start{"abc", "1700000000000"},
                      Start{"-1", "1700000000000"}, Start{" 1699999999000", "1000"},
                      Start{"1699999999000ms", "1000"}));

TEST_F(Visits, KeepDurationAndLogIfVisitStartIsNotSet) {
  const auto serverSide = make();
  clock->advance(1'000);
  execute(*serverSide);
  ASSERT_EQ(variable("#JX_SESSION_DURATION_MS#"), JXString("1000"));
  for (const JXString& missing : {JXString(), JXString("")}) {
    variables().addData_withValue("#JX_CURRENT_VISIT_MS#", missing);
    clock->advance(1'000);
    forgetLines();
    execute(*serverSide);
    EXPECT_EQ(variable("#JX_SESSION_DURATION_MS#"), JXString("1000"));
    EXPECT_THAT(linesUpTo(5), ::testing::ElementsAre(LogLine{
                                  2, "Error with timestamp kJXPredefinedVariable_CurrentVisitMs"}));
  }
}

TEST_F(Visits, StoreTimestampInSecondsAndMilliseconds) {
  start();
  variables().addTimestamp_andTimestampeMs_withTime("s", "ms", 1'700'000'000);
  EXPECT_EQ(variable("s"), JXString("1700000000"));
  EXPECT_EQ(variable("ms"), JXString("1700000000000"));
  variables().addTimestamp_andTimestampeMs_withTime("s", "ms", -3);
  EXPECT_EQ(variable("s"), JXString("-3"));
  EXPECT_EQ(variable("ms"), JXString("-3000"));
}

}  // namespace
}  // namespace jx::test
