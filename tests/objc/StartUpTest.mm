// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The steps of the start-up, of events and of transitions, called one by one. The expected values
// are those of tests/session.
#import "jx/objc/JXPredefinedVariables.h"
#import "jx/objc/JXUserDefaults.h"
#include "jx/session/JXPredefinedVariables.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCStartUp : public test::NotificationTest {
 protected:
  void preset(const std::string& key, const JXString& value) {
    platform->defaults.preset(key, value);
  }
  JXString persisted(const std::string& key) { return platform->defaults.objectForKey(key); }
  // Starts the library and removes all variables, so that each is set by the step that is tested.
  ::JXPredefinedVariables* empty() {
    start();
    ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
    [variables clearData];
    return variables;
  }
};

TEST_F(ObjectiveCStartUp, DescribesTheEnvironment) {
  platform->deviceModified = true;
  ::JXPredefinedVariables* const variables = empty();
  [variables setManufacturer];
  [variables setNorvaneVersion];
  [variables setLocalCharset];
  [variables initScreenResolution];
  [variables setApplicationBuild];
  [variables setLocalModel];
  [variables setLocalSysVersion];
  [variables setLocalSysName];
  [variables setLocalLanguage];
  [variables setBundleIdentifier];
  [variables setApplicationName];
  [variables setRuntimeName];
  [variables setModelAndVersion];
  [variables setIsJailBroken];
  const std::pair<const char*, const char*> expected[] = {
      {"#JX_MANUFACTURER#", "Apple"},
      {"#JX_NORVANE_VERSION#", "5.4.5"},
      {"#JX_CHARSET#", "UTF-8"},
      {"#JX_SCREEN_WIDTH#", "1920"},
      {"#JX_SCREEN_HEIGHT#", "1080"},
      {"#JX_APPLICATION_BUILD#", "100"},
      {"#JX_DEVICE#", "Example Television"},
      {"#JX_SYSVERSION#", "17.4"},
      {"#JX_SYSNAME#", "ExampleOS"},
      {"#JX_LANGUAGE#", "en"},
      {"#JX_REGION#", "GB"},
      {"#JX_BUNDLE_IDENTIFIER#", "com.example.tv"},
      {"#JX_APPLICATION_NAME#", "Example TV"},
      {"#JX_RUNTIME_NAME#", "tvos"},
      {"#JX_MODEL#", "ExampleTV6,2"},
      {"#JX_JAILBROKEN#", "1"},
  };
  for (const auto& [key, value] : expected)
    EXPECT_EQ(variable(key), JXString(value)) << key;
}

TEST_F(ObjectiveCStartUp, StoresTheVersionAndItsFirstVisit) {
  ::JXPredefinedVariables* const variables = empty();
  preset("#JX_APPLICATION_VERSION#", "0.9");
  [variables initApplicationVersion:@"1700000000123"];
  EXPECT_EQ(variable("#JX_APPLICATION_VERSION#"), JXString("1.0"));
  EXPECT_EQ(variable("#JX_APPLICATION_PREVIOUS_VERSION#"), JXString("0.9"));
  EXPECT_EQ(variable("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1700000000123"));
  EXPECT_EQ(persisted("#JX_APPLICATION_VERSION#"), JXString("1.0"));
}

TEST_F(ObjectiveCStartUp, MarksTheFirstVisit) {
  ::JXPredefinedVariables* const variables = empty();
  preset("#JX_VERSION_FIRST_VISIT_MS#", nullptr);
  [variables initIsFirstVisit];
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("TRUE"));
  preset("#JX_VERSION_FIRST_VISIT_MS#", "1600000000000");
  [variables initIsFirstVisit];
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("FALSE"));
}

TEST_F(ObjectiveCStartUp, ReadsTheLastCallOfAnEarlierProcess) {
  ::JXPredefinedVariables* const variables = empty();
  preset("#JX_LAST_CALL_MS#", "1650000000000");
  [variables initLastCallLastVisit];
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("1650000000000"));
}

TEST_F(ObjectiveCStartUp, StoresTheCallTimeAndTheIdentifier) {
  ::JXPredefinedVariables* const variables = empty();
  preset("jx_unique_id", "A0000000-0000-4000-8000-000000000000");
  [variables setVisitorIDCurrentCallUniqueID:@"1700000000123"];
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000000123"));
  EXPECT_EQ(text([variables uniqueIdentifier]), "A0000000-0000-4000-8000-000000000000");
}

TEST_F(ObjectiveCStartUp, CountsProcessStarts) {
  ::JXPredefinedVariables* const variables = empty();
  preset("#JX_APPLICATION_STARTS#", "41");
  [variables initColdStartNumber];
  EXPECT_EQ(variable("#JX_APPLICATION_STARTS#"), JXString("42"));
  EXPECT_EQ(persisted("#JX_APPLICATION_STARTS#"), JXString("42"));
}

TEST_F(ObjectiveCStartUp, StartsTheFirstVisit) {
  ::JXPredefinedVariables* const variables = empty();
  [variables setFirstVisitUserDefaults:@"1700000000123"];
  for (const char* key : {"#JX_FIRST_VISIT_MS#", "#JX_LAST_VISIT_MS#", "#JX_CURRENT_VISIT_MS#",
                          "#JX_CURRENT_SESSION_MS#"})
    EXPECT_EQ(variable(key), JXString("1700000000123")) << key;
  EXPECT_EQ(text([variables navNumberVisit]), "1");
  EXPECT_EQ(text([variables numberSession]), "1");
  EXPECT_EQ(persisted("jx_date_current_visit"), JXString("1700000000"));
}

TEST_F(ObjectiveCStartUp, StartsTheNextVisit) {
  ::JXPredefinedVariables* const variables = empty();
  preset("jx_date_last_visit", nullptr);
  preset("jx_date_current_visit", nullptr);
  preset("jx_number_coldStarts", "7");
  preset("jx_number_sessions", "9");
  [variables newVisitUserDefaults:@"1600000000" currentTime:@"1700000000123"];
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1600000000"));
  EXPECT_EQ(variable("#JX_CURRENT_VISIT_MS#"), JXString("1700000000123"));
  EXPECT_EQ(text([variables navNumberVisit]), "8");
  EXPECT_EQ(text([variables numberSession]), "10");
}

TEST_F(ObjectiveCStartUp, ContinuesTheVisitOfTheSameProcess) {
  ::JXPredefinedVariables* const variables = empty();
  preset("jx_date_first_visit", "1600000000");
  preset("jx_date_last_visit", "1650000000000");
  preset("jx_date_current_visit", "1699999999000");
  preset("jx_number_coldStarts", "7");
  preset("jx_number_sessions", "9");
  preset("jx_last_pid", "4242");
  [variables setTimestamps:@"1700000000123"];
  EXPECT_EQ(variable("#JX_FIRST_VISIT_MS#"), JXString("1600000000"));
  EXPECT_EQ(variable("#JX_CURRENT_VISIT_MS#"), JXString("1699999999000"));
  EXPECT_EQ(text([variables navNumberVisit]), "7");
  [variables clearData];
  [variables updateVisitUserDefaults:@"1700000000123"];
  EXPECT_EQ(variable("#JX_LAST_VISIT_MS#"), JXString("1650000000000"));
  EXPECT_EQ(text([variables numberSession]), "9");
}

TEST_F(ObjectiveCStartUp, StartsASessionWithinTheVisit) {
  ::JXPredefinedVariables* const variables = empty();
  [variables addData:@"#JX_CURRENT_CALL_MS#" withValue:@"1699999999000"];
  preset("jx_number_sessions", "9");
  [variables updateVariablesForNewSession:@"1700000000123"];
  EXPECT_EQ(text([variables numberSession]), "10");
  EXPECT_EQ(text([variables timestampCurrentVisitMs]), "1700000000123");
  EXPECT_EQ(variable("#JX_LAST_SESSION_LAST_HIT_MS#"), JXString("1699999999000"));
  EXPECT_EQ(variable("#JX_NEW_SESSION#"), JXString("1"));
  [variables resetNewSession];
  EXPECT_EQ(variable("#JX_NEW_SESSION#"), JXString("0"));
}

TEST_F(ObjectiveCStartUp, MeasuresTheSession) {
  ::JXPredefinedVariables* const variables = empty();
  [variables addData:@"#JX_CURRENT_VISIT_MS#" withValue:@"1699999995000"];
  variables.startUsage = 700;
  [variables setSessionDuration:@"1700000000000"];
  EXPECT_EQ(variable("#JX_SESSION_DURATION_MS#"), JXString("5700"));
}

TEST_F(ObjectiveCStartUp, MovesTheTimesOfCalls) {
  ::JXPredefinedVariables* const variables = empty();
  [variables initNavTimestampCalls:@"1700000000123"];
  [variables initNavTimestampCalls:@"1700000000456"];
  EXPECT_EQ(text([variables timestampLastCallMs]), "1700000000123");
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000000456"));
}

TEST_F(ObjectiveCStartUp, DerivesTheUsageOfEarlierProcesses) {
  ::JXPredefinedVariables* const variables = empty();
  preset("SessionStartTimestamp", "1699999400000");
  preset("LastSessionStartTimestamp", "1600000000000");
  preset("UsageDuration", "50000");
  preset("ExitTimestamp", "1699999900000");
  preset("LastBackgroundTime", "3000");
  preset("TimeSinceLastMeasurement", "7000");
  preset("LastForegroundTime", "20000");
  [variables initComScoreSession:@"1700000000000"];
  EXPECT_EQ(variable("#JX_LAST_SESSION_START_MS#"), JXString("1600000000000"));
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("107000"));
  EXPECT_EQ(variables.startUsage, 157'000u);
  [variables computeDeltaSinceLastLaunch:@"1700000001000"];
  EXPECT_EQ(variable("#JX_CS_START_DIT#"), JXString("101000"));
  EXPECT_EQ(variable("#JX_CS_START_FT#"), JXString("27000"));
  [variables computeStartUsageTime:YES];
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("101000"));
  [variables computeStartUsageTime:NO];
  EXPECT_EQ(variable("#JX_USER_SESSION_DURATION_MS#"), JXString("108000"));
}

TEST_F(ObjectiveCStartUp, MeasuresTransitions) {
  ::JXPredefinedVariables* const variables = empty();
  clock->advance(4'000);
  [variables didEnterBackground:nil];
  EXPECT_TRUE(variables.isBackground);
  EXPECT_EQ(variables.totalForegroundTime, 4'000u);
  EXPECT_EQ(variables.deltaForeground, 4'000u);
  EXPECT_EQ(variables.lastTime, 1'700'000'004'000u);
  clock->advance(6'000);
  NSNotification* const notification = [NSNotification notificationWithName:@"any" object:nil];
  [variables willEnterForeground:notification];
  EXPECT_FALSE(variables.isBackground);
  EXPECT_EQ(variables.totalBackgroundTime, 6'000u);
  EXPECT_EQ(variables.deltaBackground, 6'000u);
  EXPECT_EQ(variables.totalForegroundTransitions, 2);
  [variables didEnterBackground:notification];
  [variables willEnterForeground:nil];
  EXPECT_EQ(variables.totalForegroundTransitions, 3);
}

TEST_F(ObjectiveCStartUp, AcceptsNilTimes) {
  ::JXPredefinedVariables* const variables = empty();
  [variables setVisitorIDCurrentCallUniqueID:nil];
  [variables setTimestamps:nil];
  [variables setFirstVisitUserDefaults:nil];
  [variables newVisitUserDefaults:nil currentTime:nil];
  [variables updateVisitUserDefaults:nil];
  [variables updateVariablesForNewSession:nil];
  [variables setSessionDuration:nil];
  [variables initNavTimestampCalls:nil];
  [variables initComScoreSession:nil];
  [variables computeDeltaSinceLastLaunch:nil];
  [variables initApplicationVersion:nil];
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString());
}

TEST_F(ObjectiveCStartUp, IgnoresObjectsOfAWrongClass) {
  ::JXPredefinedVariables* const variables = empty();
  const id wrong = [NSArray array];
  [variables setVisitorIDCurrentCallUniqueID:wrong];
  [variables setTimestamps:wrong];
  [variables setFirstVisitUserDefaults:wrong];
  [variables newVisitUserDefaults:wrong currentTime:@"1"];
  [variables newVisitUserDefaults:@"1" currentTime:wrong];
  [variables updateVisitUserDefaults:wrong];
  [variables updateVariablesForNewSession:wrong];
  [variables setSessionDuration:wrong];
  [variables initNavTimestampCalls:wrong];
  [variables initComScoreSession:wrong];
  [variables computeDeltaSinceLastLaunch:wrong];
  [variables initApplicationVersion:wrong];
  [variables didEnterBackground:wrong];
  [variables willEnterForeground:wrong];
  EXPECT_EQ(linesUpTo(3).size(), 14u);
  EXPECT_FALSE(variables.isBackground);
  EXPECT_TRUE(jx::JXPredefinedVariables::sharedInstance().dynamicStore()->isEmpty());
}

}  // namespace
}  // namespace jx::objc
