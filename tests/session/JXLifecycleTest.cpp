// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXLifecycle.h"

#include <gtest/gtest.h>

#include "jx/core/json/JXJsonWriter.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class LifecycleBlock : public ServerSideFixture {
 protected:
  static JXJsonObject block() { return JXLifecycle::sharedInstance().getJsonObject(); }
  static std::string json() { return JXJsonWriter::write(block(), JXJsonStyle::Compact).text; }
  static void set(std::string_view key, const JXString& value) {
    JXPredefinedVariables::sharedInstance().addData_withValue(key, value);
  }
};

TEST_F(LifecycleBlock, WritesEachVariableInOrder) {
  start();
  JXPredefinedVariables::sharedInstance().clearData();
  set("#JX_SESSION_ID#", "s");
  set("#JX_NEW_SESSION#", "1");
  set("#JX_SESSION_DURATION_MS#", "3");
  set("#JX_CURRENT_SESSION_MS#", "4");
  set("#JX_NUMBER_VISIT#", "5");
  set("#JX_CURRENT_VISIT_MS#", "6");
  set("#JX_VERSION_FIRST_VISIT_MS#", "7");
  set("#JX_NUMBER_SESSION#", "8");
  set("#JX_FIRST_VISIT_MS#", "9");
  set("#JX_LAST_VISIT_MS#", "10");
  set("#JX_LAST_CALL_MS#", "11");
  set("#JX_LAST_SESSION_START_MS#", "12");
  set("#JX_LAST_SESSION_LAST_HIT_MS#", "13");
  set("#JX_FOREGROUNDS#", "14");
  set("#JX_FOREGROUND_TIME#", "15");
  set("#JX_BACKGROUND_TIME#", "16");
  set("#JX_FIRST_EXECUTE#", "TRUE");
  set("#JX_IS_FIRST_VISIT#", "TRUE");
  EXPECT_EQ(json(),
            R"({"session_id":"s","new_session":true,"session_duration":3,"current_session":4,)"
            R"("visit_number":5,"current_visit":6,"current_version_first_visit":7,)"
            R"("session_number":8,"first_visit":9,"last_visit":10,"last_call":11,)"
            R"("last_session_start":12,"last_session_last_hit":13,"foreground_transitions":14,)"
            R"("foreground_time":15,"background_time":16,"first_execute":true,)"
            R"("is_first_visit":true})");
}

TEST_F(LifecycleBlock, ReportsNewSessionOnlyForStringOne) {
  start();
  for (const char* value : {"true", "TRUE", "0", "", "01", "1 "}) {
    set("#JX_NEW_SESSION#", value);
    EXPECT_FALSE(block().get("new_session").boolValue()) << value;
  }
  set("#JX_NEW_SESSION#", nullptr);
  EXPECT_FALSE(block().get("new_session").boolValue());
  set("#JX_NEW_SESSION#", "1");
  EXPECT_TRUE(block().get("new_session").boolValue());
}

TEST_F(LifecycleBlock, ReportsFirstExecuteAndVisitOnlyForStringTRUE) {
  start();
  for (const char* value : {"1", "true", "True", "", "TRUE "}) {
    set("#JX_FIRST_EXECUTE#", value);
    set("#JX_IS_FIRST_VISIT#", value);
    EXPECT_FALSE(block().get("first_execute").boolValue()) << value;
    EXPECT_FALSE(block().get("is_first_visit").boolValue()) << value;
  }
  set("#JX_FIRST_EXECUTE#", "TRUE");
  set("#JX_IS_FIRST_VISIT#", "TRUE");
  EXPECT_TRUE(block().get("first_execute").boolValue());
  EXPECT_TRUE(block().get("is_first_visit").boolValue());
}

TEST_F(LifecycleBlock, FieldsOverrideAdditionalProperties) {
  start();
  JXLifecycle& lifecycle = JXLifecycle::sharedInstance();
  lifecycle.addAdditionalProperty_withStringValue("mood", "good");
  lifecycle.addAdditionalProperty_withStringValue("visit_number", "forged");
  EXPECT_EQ(block().get("mood").string(), JXString("good"));
  EXPECT_EQ(block().get("visit_number").numberString(), JXString("1"));
  set("#JX_NUMBER_VISIT#", nullptr);
  EXPECT_EQ(block().get("visit_number").string(), JXString("forged"));
}

TEST_F(LifecycleBlock, ReadsVariablesAtEachSerialisation) {
  start();
  set("#JX_NUMBER_VISIT#", "7");
  EXPECT_EQ(block().get("visit_number").numberString(), JXString("7"));
  set("#JX_NUMBER_VISIT#", "8");
  EXPECT_EQ(JXLifecycle::sharedInstance().visitNumber(), JXString("7")) << "the last copied value";
  EXPECT_EQ(block().get("visit_number").numberString(), JXString("8"));
}

TEST_F(LifecycleBlock, KeepsTheStringAndWritesANumber) {
  start();
  set("#JX_CURRENT_VISIT_MS#", "+0012.50");
  EXPECT_EQ(block().get("current_visit").numberString(), JXString("12.50"));
  EXPECT_EQ(JXLifecycle::sharedInstance().currentVisit(), JXString("+0012.50"));
}

TEST_F(LifecycleBlock, OmitsStringsThatAreNotNumbers) {
  start();
  for (const char* value : {"", "abc", "12ms", "-"}) {
    set("#JX_CURRENT_VISIT_MS#", value);
    EXPECT_FALSE(block().contains("current_visit")) << value;
  }
  set("#JX_CURRENT_VISIT_MS#", "123456789012345678901234567890");
  EXPECT_EQ(block().get("current_visit").numberString(),
            JXString("123456789012345678901234567890"));
  set("#JX_CURRENT_VISIT_MS#", "-5");
  EXPECT_EQ(block().get("current_visit").numberString(), JXString("-5"));
}

TEST_F(LifecycleBlock, IsEmptyBeforeFirstSerialisation) {
  start();
  const JXLifecycle& lifecycle = JXLifecycle::sharedInstance();
  EXPECT_FALSE(lifecycle.sessionID().isPresent());
  EXPECT_FALSE(lifecycle.visitNumber().isPresent());
  EXPECT_FALSE(lifecycle.isNewSession());
  EXPECT_FALSE(lifecycle.isFirstVisit());
  EXPECT_FALSE(lifecycle.firstExecute());
}

TEST_F(LifecycleBlock, SecondInitNeverReturns) {
  start();
  EXPECT_TRUE(neverReturns([] { JXLifecycle::sharedInstance(); },
                           [] { JXLifecycle::sharedInstance().init(); }));
  EXPECT_TRUE(neverReturns([] { JXLifecycle::sharedInstance(); },
                           [] {
                             JXLifecycle other;
                             other.init();
                           }));
}

TEST_F(LifecycleBlock, SharedInstanceReturnsSameObject) {
  start();
  EXPECT_EQ(&JXLifecycle::sharedInstance(), &JXLifecycle::sharedInstance());
}

TEST_F(LifecycleBlock, GettersReturnWhatSettersStored) {
  start();
  JXLifecycle l;
  l.setFirstExecute(true);
  l.setIsFirstVisit(true);
  l.setIsNewSession(true);
  l.setSessionID("1");
  l.setSessionDuration("2");
  l.setCurrentSession("3");
  l.setVisitNumber("4");
  l.setCurrentVisit("5");
  l.setCurrentVersionFirstVisit("6");
  l.setSessionNumber("7");
  l.setFirstVisit("8");
  l.setLastVisit("9");
  l.setLastCall("10");
  l.setLastSessionStart("11");
  l.setLastSessionLastHit("12");
  l.setForegroundTransitions("13");
  l.setForegroundTime("14");
  l.setBackgroundTime("15");
  EXPECT_TRUE(l.firstExecute() && l.isFirstVisit() && l.isNewSession());
  EXPECT_EQ((std::vector<JXString>{
                l.sessionID(), l.sessionDuration(), l.currentSession(), l.visitNumber(),
                l.currentVisit(), l.currentVersionFirstVisit(), l.sessionNumber(), l.firstVisit(),
                l.lastVisit(), l.lastCall(), l.lastSessionStart(), l.lastSessionLastHit(),
                l.foregroundTransitions(), l.foregroundTime(), l.backgroundTime()}),
            (std::vector<JXString>{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12",
                                   "13", "14", "15"}));
}

}  // namespace
}  // namespace jx::test
