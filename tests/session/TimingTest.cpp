// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Time in the foreground and in the background, measured with a manual clock.

#include <gmock/gmock.h>

#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class UsageTiming : public ServerSideFixture {
 protected:
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
  void preset(const std::string& key, const JXString& value) {
    platform->defaults.preset(key, value);
  }
  JXString persisted(const std::string& key) { return platform->defaults.objectForKey(key); }
  void presetExit(const char* exit, const char* background, const char* unmeasured,
                  const char* foreground) {
    preset("ExitTimestamp", exit);
    preset("LastBackgroundTime", background);
    preset("TimeSinceLastMeasurement", unmeasured);
    preset("LastForegroundTime", foreground);
  }
  static std::string startValues() {
    return variable("#JX_CS_START_IT#").toStdString() + " " +
           variable("#JX_CS_START_DIT#").toStdString() + " " +
           variable("#JX_CS_START_DFT#").toStdString() + " " +
           variable("#JX_CS_START_FT#").toStdString();
  }
  static std::string times() {
    return variable("#JX_FOREGROUND_TIME#").toStdString() + " " +
           variable("#JX_DELTA_FOREGROUND_TIME#").toStdString() + " " +
           variable("#JX_BACKGROUND_TIME#").toStdString() + " " +
           variable("#JX_DELTA_BACKGROUND_TIME#").toStdString();
  }
  void event() { variables().computeTimeChangingVariables(); }
};

TEST_F(UsageTiming, FirstStartSetsZeros) {
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1700000000000"));
  EXPECT_EQ(persisted("LastSessionStartTimestamp"), JXString("0"));
  EXPECT_EQ(persisted("UsageDuration"), JXString("0"));
  EXPECT_EQ(startValues(), "0 0 0 0");
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("0"));
  EXPECT_EQ(variable("#JX_USAGE_SESSION_DURATION_MS#"), JXString("0"));
  EXPECT_EQ(variable("#JX_LAST_SESSION_START_MS#"), JXString("0"));
}

TEST_F(UsageTiming, StartWithinLimitKeepsSessionAndAddsUnmeasuredTime) {
  preset("SessionStartTimestamp", "1699999400000");
  preset("LastSessionStartTimestamp", "1600000000000");
  preset("UsageDuration", "50000");
  presetExit("1699999900000", "3000", "7000", "20000");
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1699999400000"));
  EXPECT_EQ(variable("#JX_LAST_SESSION_START_MS#"), JXString("1600000000000"));
  EXPECT_EQ(startValues(), "103000 100000 7000 27000");
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("107000"));
  EXPECT_EQ(variable("#JX_USAGE_SESSION_DURATION_MS#"), JXString("157000"));
  EXPECT_EQ(variables().startUsage(), 157'000u);
}

TEST_F(UsageTiming, StartBeyondLimitRenewsSessionWithoutUnmeasuredTime) {
  preset("SessionStartTimestamp", "1699998140000");  // 31 minutes
  preset("LastSessionStartTimestamp", "1600000000000");
  preset("UsageDuration", "50000");
  presetExit("1699999900000", "3000", "7000", "20000");
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1700000000000"));
  EXPECT_EQ(persisted("LastSessionStartTimestamp"), JXString("1699998140000"));
  EXPECT_EQ(variable("#JX_LAST_SESSION_START_MS#"), JXString("1699998140000"));
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("100000"));
  EXPECT_EQ(variable("#JX_USAGE_SESSION_DURATION_MS#"), JXString("150000"));
}

TEST_F(UsageTiming, StartExactlyAtLimitKeepsSession) {
  preset("SessionStartTimestamp", "1699998200000");
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1699998200000"));
}

TEST_F(UsageTiming, StartOneMillisecondBeyondLimitRenewsSession) {
  preset("SessionStartTimestamp", "1699998199999");
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1700000000000"));
}

TEST_F(UsageTiming, ClockSetBackBeforeStoredStartRenewsSession) {
  preset("SessionStartTimestamp", "1700000000001");
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1700000000000"));
  EXPECT_EQ(persisted("LastSessionStartTimestamp"), JXString("1700000000001"));
}

TEST_F(UsageTiming, ExitInTheFutureWrapsAround) {
  preset("SessionStartTimestamp", "1700000000000");
  presetExit("1700000001000", "500", "0", "0");
  start();
  variables();
  // -1000 in 64 bits, and 500 more.
  EXPECT_EQ(startValues(), "18446744073709551116 18446744073709550616 0 0");
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("18446744073709550616"));
}

TEST_F(UsageTiming, LeavesLastSessionStartUnsetIfNotPersisted) {
  preset("SessionStartTimestamp", "1699999999000");
  start();
  variables();
  EXPECT_FALSE(variable("#JX_LAST_SESSION_START_MS#").isPresent());
}

class MissingExit : public UsageTiming, public ::testing::WithParamInterface<const char*> {};

TEST_P(MissingExit, LeavesStartValuesAtZero) {
  presetExit("1699999900000", "3000", "7000", "20000");
  preset(GetParam(), nullptr);
  start();
  variables();
  EXPECT_EQ(startValues(), "0 0 0 0");
}

INSTANTIATE_TEST_SUITE_P(Of, MissingExit,
                         ::testing::Values("ExitTimestamp", "LastBackgroundTime",
                                           "TimeSinceLastMeasurement", "LastForegroundTime"));

TEST_F(UsageTiming, StoredStringsThatAreNotNumbersCountAsZero) {
  preset("SessionStartTimestamp", "soon");  // 0: more than the limit ago
  preset("UsageDuration", "-9");
  presetExit("", "letters", "12ms", "1.5");
  start();
  variables();
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1700000000000"));
  EXPECT_EQ(persisted("LastSessionStartTimestamp"), JXString("soon"));
  // The unmeasured time is the stored string, unchanged.
  EXPECT_EQ(startValues(), "1700000000000 1700000000000 12ms 0");
  EXPECT_EQ(variable("#JX_USAGE_SESSION_DURATION_MS#"), JXString("1700000000000"));
}

TEST_F(UsageTiming, LargeStoredNumbersWrapAround) {
  preset("SessionStartTimestamp", "1700000000000");
  preset("UsageDuration", "18446744073709551617");  // 2^64 + 1
  start();
  variables();
  EXPECT_EQ(variables().startUsage(), 1u);
  EXPECT_TRUE(linesUpTo(3).empty());
}

TEST_F(UsageTiming, SecondEventReportsTimeSinceTheFirst) {
  start();
  variables();
  clock->advance(2'000);
  event();
  EXPECT_EQ(times(), "2000 2000 0 0");
  clock->advance(5'000);
  event();
  EXPECT_EQ(times(), "7000 5000 0 0");
  EXPECT_EQ(variables().deltaForeground(), 0u);
}

TEST_F(UsageTiming, EventAtSameInstantReportsZero) {
  start();
  variables();
  event();
  EXPECT_EQ(times(), "0 0 0 0");
}

TEST_F(UsageTiming, BackgroundTransitionPersistsSnapshot) {
  start();
  variables();
  clock->advance(4'000);
  event();
  clock->advance(3'000);
  variables().didEnterBackground({});
  EXPECT_TRUE(variables().isBackground());
  EXPECT_EQ(persisted("TimeSinceLastMeasurement"), JXString("3000"));
  EXPECT_EQ(persisted("ExitTimestamp"), JXString("1700000007000"));
  EXPECT_EQ(persisted("LastForegroundTime"), JXString("4000"))
      << "without the time since the last event";
  EXPECT_EQ(persisted("LastBackgroundTime"), JXString("0"));
  EXPECT_EQ(variables().totalForegroundTime(), 7'000u);
  EXPECT_EQ(variables().deltaForeground(), 3'000u);
  EXPECT_EQ(variables().lastTime(), 1'700'000'007'000u);
  EXPECT_EQ(times(), "4000 4000 0 0") << "the next event updates the variables";
}

TEST_F(UsageTiming, RepeatedBackgroundTransitionCountsForegroundTime) {
  start();
  variables();
  clock->advance(1'000);
  variables().didEnterBackground({});
  clock->advance(2'000);
  variables().didEnterBackground({});
  EXPECT_EQ(variables().totalForegroundTime(), 3'000u);
  EXPECT_EQ(persisted("TimeSinceLastMeasurement"), JXString("2000"));
  EXPECT_EQ(persisted("LastForegroundTime"), JXString("1000"));
}

TEST_F(UsageTiming, EventsInTheBackgroundAddBackgroundTime) {
  start();
  variables();
  clock->advance(1'000);
  variables().didEnterBackground({});
  clock->advance(2'000);
  event();
  EXPECT_EQ(times(), "1000 1000 2000 2000");
  clock->advance(4'000);
  event();
  EXPECT_EQ(times(), "1000 0 6000 4000");
}

TEST_F(UsageTiming, ForegroundTransitionReplacesDeltaAndIsCounted) {
  start();
  variables();
  variables().didEnterBackground({});
  clock->advance(6'000);
  variables().setDeltaBackground(999);
  variables().willEnterForeground({});
  EXPECT_FALSE(variables().isBackground());
  EXPECT_EQ(variables().deltaBackground(), 6'000u);
  EXPECT_EQ(variables().totalBackgroundTime(), 6'000u);
  EXPECT_EQ(variables().lastTime(), 1'700'000'006'000u);
  EXPECT_EQ(variable("#JX_FOREGROUNDS#"), JXString("2"));
  clock->advance(1'000);
  event();
  EXPECT_EQ(times(), "1000 1000 6000 6000");
}

TEST_F(UsageTiming, ForegroundWithoutBackgroundChangesNothing) {
  start();
  variables();
  clock->advance(9'000'000);
  const int writes = platform->defaults.setCount();
  variables().willEnterForeground({});
  EXPECT_EQ(variables().totalForegroundTransitions(), 1);
  EXPECT_EQ(variable("#JX_FOREGROUNDS#"), JXString("1"));
  EXPECT_EQ(variables().lastTime(), 1'700'000'000'000u);
  EXPECT_EQ(variables().totalBackgroundTime(), 0u);
  EXPECT_EQ(platform->defaults.setCount(), writes);
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("1"));
}

TEST_F(UsageTiming, BackgroundExactlyAtLimitKeepsSession) {
  start();
  variables();
  variables().didEnterBackground({});
  clock->advance(1'800'000);
  variables().willEnterForeground({});
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("1"));
}

TEST_F(UsageTiming, BackgroundOneMillisecondBeyondLimitStartsSession) {
  start();
  variables();
  variables().didEnterBackground({});
  clock->advance(1'800'001);
  variables().willEnterForeground({});
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
  EXPECT_EQ(variable("#JX_CURRENT_SESSION_MS#"), JXString("1700001800001"));
}

TEST_F(UsageTiming, EventInTheBackgroundRestartsTheLimit) {
  start();
  variables();
  variables().didEnterBackground({});
  clock->advance(1'800'000);
  event();
  clock->advance(1'800'000);
  variables().willEnterForeground({});
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("1")) << "measured from the event";
}

TEST_F(UsageTiming, SessionAfterTheBackgroundKeepsLastSessionStart) {
  preset("SessionStartTimestamp", "1699999400000");
  preset("LastSessionStartTimestamp", "1600000000000");
  start();
  variables();
  variables().didEnterBackground({});
  clock->advance(1'800'001);
  variables().willEnterForeground({});
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
  EXPECT_EQ(variable("#JX_LAST_SESSION_START_MS#"), JXString("1600000000000"));
  EXPECT_EQ(persisted("SessionStartTimestamp"), JXString("1699999400000"));
}

TEST_F(UsageTiming, ClockSetBackInTheBackgroundStartsSession) {
  start();
  variables();
  variables().didEnterBackground({});
  clock->advance(-1);
  variables().willEnterForeground({});
  EXPECT_EQ(variables().deltaBackground(), 18446744073709551615u);
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
}

TEST_F(UsageTiming, ClockSetBackBetweenEventsWrapsAround) {
  start();
  variables();
  clock->advance(-1'000);
  event();
  EXPECT_EQ(times(), "18446744073709550616 18446744073709550616 0 0");
  clock->advance(1'000);
  event();
  EXPECT_EQ(times(), "0 1000 0 0") << "the total wraps around again";
}

TEST_F(UsageTiming, UsesConfiguredVisitDuration) {
  start();
  variables().setVisitDuration(100);
  variables().didEnterBackground({});
  clock->advance(101);
  variables().willEnterForeground({});
  EXPECT_EQ(variable("#JX_NUMBER_SESSION#"), JXString("2"));
}

TEST_F(UsageTiming, EachEventPersistsUsageSinceThePreviousOne) {
  preset("SessionStartTimestamp", "1699999999000");
  preset("UsageDuration", "100");
  start();
  variables();
  clock->advance(1'000);
  event();
  EXPECT_EQ(persisted("UsageDuration"), JXString("1100"));
  variables().didEnterBackground({});
  clock->advance(3'000);
  variables().willEnterForeground({});
  clock->advance(500);
  event();
  EXPECT_EQ(persisted("UsageDuration"), JXString("3600"))
      << "the deltas plus the usage at the start";
}

TEST_F(UsageTiming, ObservesApplicationTransitions) {
  const auto serverSide = make();
  clock->advance(1'000);
  platform->enterBackground();
  clock->advance(2'000);
  platform->enterForeground();
  const JXJsonObject block = lifecycle(execute(*serverSide));
  EXPECT_EQ(block.get("foreground_time").numberString(), JXString("1000"));
  EXPECT_EQ(block.get("background_time").numberString(), JXString("2000"));
  EXPECT_EQ(block.get("foreground_transitions").numberString(), JXString("2"));
}

}  // namespace
}  // namespace jx::test
