// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Constants that applications, servers and existing installations rely on.
#import "jx/objc/JXNames.h"

#import "jx/objc/JXPredefinedVariables.h"
#import "jx/objc/JXUserDefaults.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCNames : public test::NotificationTest {};

TEST_F(ObjectiveCNames, HaveTheirPublishedStrings) {
  const std::pair<NSString*, const char*> strings[] = {
      {::kJXCoreVersion, "1.0.0"},
      {::kJXServerSideVersion, "5.4.5"},
      {::kReleaseDate, "28/04/2025"},
      {::kReleaseTime, "17:17:38"},
      {::JX_WAITING_FOR_CONSENT, "waiting_for_consent"},
      {::STATIC_IDFA, "00000000-0000-0000-0000-000000000000"},
      {::JX_GCM_DEVELOPER_ID, "jx_serverside"},
      {::kJXManufacturerName, "Apple"},
      {::kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement, "#JX_CS_START_FT#"},
      {::kJXUserDefaultsKey_UniqueID, "jx_unique_id"},
      {::kJXDateFirstVisitFormat, "jx_date_first_visit"},
      {::kJXDateLastVisitFormat, "jx_date_last_visit"},
      {::kJXDateCurrentVisitFormat, "jx_date_current_visit"},
      {::kJXNumberColdStarts, "jx_number_coldStarts"},
      {::kJXNumberSessions, "jx_number_sessions"},
      {::kJXLastPID, "jx_last_pid"},
      {::kJXTimeSinceLastMeasurement, "TimeSinceLastMeasurement"},
      {::kJXExitTimestamp, "ExitTimestamp"},
      {::kJXLastForegroundTime, "LastForegroundTime"},
      {::kJXLastBackgroundTime, "LastBackgroundTime"},
      {::kJXUsageDuration, "UsageDuration"},
      {::kJXSessionStartTimestamp, "SessionStartTimestamp"},
      {::kJXLastSessionStartTimestamp, "LastSessionStartTimestamp"},
  };
  for (const auto& [constant, string] : strings)
    EXPECT_EQ(text(constant), string);
}

TEST_F(ObjectiveCNames, ReadPersistedStrings) {
  create();
  EXPECT_EQ(text([::JXUserDefaults retrieveInfoFromUserDefaults: ::kJXUserDefaultsKey_UniqueID]),
            text([[::JXPredefinedVariables sharedInstance] uniqueIdentifier]));
  EXPECT_EQ(text([::JXUserDefaults retrieveInfoFromUserDefaults: ::kJXNumberColdStarts]), "1");
  EXPECT_EQ(text([::JXUserDefaults retrieveInfoFromUserDefaults: ::kJXDateFirstVisitFormat]),
            "1700000000");
}

TEST_F(ObjectiveCNames, TheVisitDurationIsInSeconds) {
  create();
  EXPECT_EQ(::kJXVisitDurationDefaultValue, 1800);
  EXPECT_EQ([::JXPredefinedVariables sharedInstance].visitDuration, 1'800'000u);
}

}  // namespace
}  // namespace jx::objc
