// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Visits, sessions and calls within one launch; what earlier launches left is preset.

#include <gmock/gmock.h>

#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class Visits : public ServerSideFixture {
 protected:
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
  void preset(const std::string& key, const JXString& value) {
    platform->defaults.preset(key, value);
  }
  /// Absent when nothing is persisted under the key.
  JXString persisted(const std::string& key) { return platform->defaults.objectForKey(key); }
  /// What a launch at 1600000000000 left, without any session or event after it.
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

TEST_F(Visits, TheFirstLaunchIsTheFirstOfEverything) {
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
    EXPECT_EQ(persisted(key), JXString("1700000000")) << key << " holds seconds";
}

TEST_F(Visits, TheNextLaunchCountsAVisitAndASession) {
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

TEST_F(Visits, WithoutAPersistedCurrentVisitTheFirstVisitServes) {
  preset("jx_date_first_visit", "1600000000");
  preset("jx_date_last_visit", "1650000000000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1600000000"));
  EXPECT_EQ(persisted("jx_date_last_visit"), JXString("1600000000"));
}

TEST_F(Visits, WithoutAPersistedLastVisitTheCurrentOneBecomesIt) {
  preset("jx_date_first_visit", "1600000000");
  preset("jx_date_current_visit", "1650000000000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1650000000000"));
}

TEST_F(Visits, AnEmptyFirstVisitIsPresentAndSoNotTheFirst) {
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

TEST_P(StoredCounts, OfVisitsGoOnFromWhatIsStored) {
  presetEarlierLaunch();
  preset("jx_number_coldStarts", GetParam().stored);
  start();
  variables();
  EXPECT_EQ(variable("#JX_NUMBER_VISIT#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("jx_number_coldStarts"), JXString(GetParam().next));
}

TEST_P(StoredCounts, OfSessionsGoOnFromWhatIsStoredAtANewVisit) {
  presetEarlierLaunch();
  preset("jx_number_sessions", GetParam().stored);
  start();
  variables();
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("jx_number_sessions"), JXString(GetParam().next));
}

TEST_P(StoredCounts, OfSessionsGoOnFromWhatIsStoredAtANewSession) {
  const auto serverSide = make();
  preset("jx_number_sessions", GetParam().stored);
  longBackground();
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("jx_number_sessions"), JXString(GetParam().next));
}

TEST_P(StoredCounts, OfProcessStartsGoOnFromWhatIsStored) {
  preset("#JX_APPLICATION_STARTS#", GetParam().stored);
  start();
  variables();
  EXPECT_EQ(variable("#JX_APPLICATION_STARTS#"), JXString(GetParam().next));
  EXPECT_EQ(persisted("#JX_APPLICATION_STARTS#"), JXString(GetParam().next));
}

// Counts are 32-bit numbers in text: one that is beyond them wraps around and never stops the
// start.
INSTANTIATE_TEST_SUITE_P(Are, StoredCounts,
                         ::testing::Values(Count{nullptr, "1"}, Count{"", "1"}, Count{"41", "42"},
                                           Count{"abc", "1"}, Count{"12abc", "13"},
                                           Count{" 7", "8"}, Count{"-5", "-4"}, Count{"-1", "0"},
                                           Count{"2147483647", "-2147483648"},
                                           Count{"999999999999999999999999999999", "0"}));

TEST_F(Visits, TheUniqueIdentifierIsKeptOnceItIsStored) {
  preset("jx_unique_id", "A0000000-0000-4000-8000-000000000000");
  start();
  EXPECT_EQ(variables().uniqueIdentifier(), JXString("A0000000-0000-4000-8000-000000000000"));
  EXPECT_EQ(platform->defaults.setCount("jx_unique_id"), 0);
  EXPECT_EQ(platform->uuidCount(), 3) << "a fresh one is drawn all the same";
  EXPECT_EQ(platform->defaults.synchronizeCount(), 1);
}

TEST_F(Visits, AFreshInstallationGetsAUniqueIdentifier) {
  start();
  EXPECT_EQ(variables().uniqueIdentifier(), JXString("00000000-0000-4000-8000-000000000002"));
  EXPECT_EQ(persisted("jx_unique_id"), JXString("00000000-0000-4000-8000-000000000002"));
  EXPECT_EQ(platform->defaults.synchronizeCount(), 1);
}

TEST_F(Visits, TheFirstEventsLastCallIsItsOwnTimeWhenThereNeverWasOne) {
  const auto serverSide = make();
  clock->advance(3'000);
  execute(*serverSide);
  EXPECT_EQ(variable("#JX_LAST_CALL_MS#"), JXString("1700000003000"));
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000003000"));
  EXPECT_EQ(persisted("#JX_LAST_CALL_MS#"), JXString("1700000003000"));
}

TEST_F(Visits, TheFirstEventsLastCallIsTheLastOfTheEarlierProcess) {
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

TEST_F(Visits, ALongBackgroundStartsASessionWithinTheVisit) {
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

TEST_F(Visits, SessionAndVisitStartDifferAfterANewSession) {
  const auto serverSide = make();
  EXPECT_EQ(variables().timestampCurrentVisitMs(), variables().nav_TimestampCurrentVisitMs());
  longBackground();
  EXPECT_EQ(variables().timestampCurrentVisitMs(), JXString("1700001800001"));
  EXPECT_EQ(variables().nav_TimestampCurrentVisitMs(), JXString("1700000000000"));
}

TEST_F(Visits, OnlyTheFirstEventOfTheNewSessionCarriesTheMark) {
  const auto serverSide = make();
  execute(*serverSide);
  longBackground();
  EXPECT_TRUE(lifecycle(execute(*serverSide)).get("new_session").boolValue());
  EXPECT_FALSE(lifecycle(execute(*serverSide)).get("new_session").boolValue());
}

TEST_F(Visits, TheSessionDurationCountsFromTheVisitAndCarriesTheUsage) {
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

TEST_F(Visits, WithoutAVisitStartTheDurationStaysAndOneLineSaysSo) {
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

TEST_F(Visits, ATimestampIsStoredInSecondsAndMilliseconds) {
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
