// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Whole launches: consecutive processes that share one storage folder. Each one is killed.

#include <gtest/gtest.h>

#include "jx/core/json/JXJsonWriter.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

class Launches : public ServerSideFixture {
 protected:
  Launches() {
    platform->hasUserDefaults = false;
    configuration.storageFolder = folder_.path();
  }
  /// Starts a process at `atMs` and calls `act`; returns the values of `keys` at its end.
  std::string launch(std::int64_t atMs, const std::vector<const char*>& keys,
                     const std::function<void(ServerSide&)>& act = {}) {
    return inLaunch([&] {
      clock->set(atMs);
      const auto serverSide = make();
      if (act) act(*serverSide);
      std::string values;
      for (const char* key : keys) {
        const JXString value = variable(key);
        if (!values.empty()) values += ' ';
        values += value.isPresent() ? value.toStdString() : "(null)";
      }
      return values;
    });
  }

  const TemporaryFolder folder_;
};

TEST_F(Launches, IncrementVisitsSessionsAndStarts) {
  const std::vector<const char*> keys = {"#JX_NUMBER_VISIT#", "#JX_NUMBER_SESSION#",
                                         "#JX_APPLICATION_STARTS#", "#JX_IS_FIRST_VISIT#"};
  EXPECT_EQ(launch(kStartMs, keys), "1 1 1 TRUE");
  EXPECT_EQ(launch(kStartMs + 1'000, keys), "2 2 2 FALSE");
  EXPECT_EQ(launch(kStartMs + 2'000, keys), "3 3 3 FALSE");
}

TEST_F(Launches, WithTheSamePidCountAsSeparateVisits) {
  EXPECT_EQ(launch(kStartMs, {"#JX_NUMBER_VISIT#"}), "1");
  EXPECT_EQ(launch(kStartMs, {"#JX_NUMBER_VISIT#"}), "2") << "all fake processes have the same pid";
}

TEST_F(Launches, ReportLastVisitInSecondsOnceThenInMilliseconds) {
  const std::vector<const char*> keys = {"#JX_FIRST_VISIT_MS#", "#JX_LAST_VISIT_MS#",
                                         "#JX_CURRENT_VISIT_MS#"};
  EXPECT_EQ(launch(1'700'000'000'000, keys), "1700000000000 1700000000000 1700000000000");
  EXPECT_EQ(launch(1'700'000'100'000, keys), "1700000000 1700000000 1700000100000");
  EXPECT_EQ(launch(1'700'000'200'000, keys), "1700000000 1700000100000 1700000200000");
}

TEST_F(Launches, ReportLastSessionStartOfAVisitAsLastVisit) {
  launch(1'700'000'000'000, {}, [this](ServerSide&) {
    platform->enterBackground();
    clock->advance(1'800'001);
    platform->enterForeground();
  });
  EXPECT_EQ(
      launch(1'700'010'000'000, {"#JX_LAST_VISIT_MS#", "#JX_NUMBER_VISIT#", "#JX_NUMBER_SESSION#"}),
      "1700001800001 2 3");
}

TEST_F(Launches, KeepUniqueIdentifierUntilReinstallation) {
  const std::string first = launch(kStartMs, {"#JX_UNIQUE_ID#"});
  EXPECT_EQ(first.size(), 36u);
  platform->newUUID();
  EXPECT_EQ(launch(kStartMs + 1, {"#JX_UNIQUE_ID#"}), first);
  const TemporaryFolder elsewhere;
  configuration.storageFolder = elsewhere.path();
  EXPECT_NE(launch(kStartMs + 2, {"#JX_UNIQUE_ID#"}), first);
}

TEST_F(Launches, CreateNewSessionIdentifiers) {
  const std::string first = launch(kStartMs, {"#JX_SESSION_ID#"});
  for (int i = 0; i < 10; ++i)
    platform->newUUID();
  EXPECT_NE(launch(kStartMs + 1, {"#JX_SESSION_ID#"}), first);
}

TEST_F(Launches, CarryLastCallOver) {
  const std::vector<const char*> keys = {"#JX_LAST_CALL_MS#", "#JX_LAST_SESSION_LAST_HIT_MS#"};
  EXPECT_EQ(launch(1'700'000'000'000, keys,
                   [this](ServerSide& serverSide) {
                     clock->advance(4'000);
                     execute(serverSide);
                   }),
            "1700000004000 0");
  EXPECT_EQ(launch(1'700'000'100'000, keys), "(null) 1700000004000");
  EXPECT_EQ(
      launch(1'700'000'200'000, keys, [this](ServerSide& serverSide) { execute(serverSide); }),
      "1700000004000 1700000004000");
}

TEST_F(Launches, OmitLastHitIfNoEarlierProcessExecutedAnEvent) {
  const std::vector<const char*> keys = {"#JX_LAST_SESSION_LAST_HIT_MS#"};
  EXPECT_EQ(launch(1'700'000'000'000, keys), "0") << "the first process of the installation";
  EXPECT_EQ(launch(1'700'000'100'000, keys,
                   [this](ServerSide& serverSide) {
                     EXPECT_FALSE(lifecycle(execute(serverSide)).contains("last_session_last_hit"));
                   }),
            "(null)");
  EXPECT_EQ(launch(1'700'000'200'000, keys), "1700000100000");
}

TEST_F(Launches, MarkTheirFirstEventAsFirstExecuteAndNewSession) {
  const auto act = [this](ServerSide& serverSide) { execute(serverSide); };
  EXPECT_EQ(launch(kStartMs, {"#JX_FIRST_EXECUTE#", "#JX_NEW_SESSION#"}, act), "TRUE 0");
  EXPECT_EQ(launch(kStartMs + 1, {"#JX_FIRST_EXECUTE#", "#JX_NEW_SESSION#"}, act), "TRUE 0");
}

TEST_F(Launches, ContinueMeasuredSessionAfterTenMinutes) {
  const std::vector<const char*> keys = {"#JX_USER_SESSION_DURATION_MS#",
                                         "#JX_USAGE_SESSION_DURATION_MS#",
                                         "#JX_LAST_SESSION_START_MS#"};
  EXPECT_EQ(launch(1'700'000'000'000, keys,
                   [this](ServerSide& serverSide) {
                     clock->advance(20'000);
                     execute(serverSide);
                     clock->advance(10'000);
                     platform->enterBackground();
                   }),
            "0 0 0");
  // 570 s since the exit, 10 s that no event measured, 20 s of measured usage.
  EXPECT_EQ(launch(1'700'000'600'000, keys), "580000 600000 0");
}

TEST_F(Launches, StartNewMeasuredSessionAfterThirtyOneMinutes) {
  const std::vector<const char*> keys = {"#JX_USER_SESSION_DURATION_MS#",
                                         "#JX_USAGE_SESSION_DURATION_MS#",
                                         "#JX_LAST_SESSION_START_MS#"};
  launch(1'700'000'000'000, keys, [this](ServerSide& serverSide) {
    clock->advance(20'000);
    execute(serverSide);
    clock->advance(10'000);
    platform->enterBackground();
  });
  // 31 min minus 30 s since the exit; the unmeasured 10 s are not included.
  EXPECT_EQ(launch(1'700'001'860'000, keys), "1830000 1850000 1700000000000");
  EXPECT_EQ(launch(1'700'001'870'000, keys), "1850000 1870000 1700000000000")
      << "ten seconds after the new start no session starts";
}

TEST_F(Launches, DetectApplicationUpdate) {
  const std::vector<const char*> keys = {"#JX_APPLICATION_VERSION#", "#JX_VERSION_FIRST_VISIT_MS#",
                                         "#JX_APPLICATION_PREVIOUS_VERSION#",
                                         "#JX_IS_FIRST_VISIT#"};
  EXPECT_EQ(launch(1'700'000'000'000, keys), "1.0 1700000000000 0 TRUE");
  EXPECT_EQ(launch(1'700'000'100'000, keys), "1.0 1700000000000 0 FALSE");
  platform->bundle.shortVersion = "1.1";
  EXPECT_EQ(launch(1'700'000'200'000, keys), "1.1 1700000200000 0 FALSE");
  EXPECT_EQ(launch(1'700'000'300'000, keys), "1.1 1700000200000 0 FALSE");
}

}  // namespace
}  // namespace jx::test
