// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The store of predefined variables, and the operations that only read or write it.

#include <gmock/gmock.h>

#include <limits>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXUser.h"
#include "jx/core/notifications/JXEventSender.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class VariableStore : public ServerSideFixture {
 protected:
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
  static void announce(const JXJsonValue& userAgent,
                       JXNotificationCenter& center = *JXNotificationCenter::defaultCenter()) {
    JXJsonObject userInfo;
    userInfo.set(kJXUserInfo_DataKey, userAgent);
    center.postNotification({kJXNotification_UserAgentAvailable, nullptr, userInfo});
  }
};

class BaselessVariables final : public JXPredefinedVariables {
 protected:
  bool baseInit() override { return false; }
};

TEST_F(VariableStore, SharedInstanceReturnsSameObject) {
  start();
  JXPredefinedVariables* const first = &variables();
  first->addData_withValue("k", "v");
  const int writes = platform->defaults.setCount();
  const int uuids = platform->uuidCount();
  EXPECT_EQ(&variables(), first);
  EXPECT_EQ(first->getData("k"), JXString("v"));
  EXPECT_EQ(platform->defaults.setCount(), writes);
  EXPECT_EQ(platform->uuidCount(), uuids);
}

TEST_F(VariableStore, SetsReplacesRemovesAndClears) {
  start();
  variables().addData_withValue("k", "v");
  EXPECT_EQ(variables().getData("k"), JXString("v"));
  variables().addData_withValue("k", "");
  EXPECT_EQ(variables().getData("k"), JXString(""));
  EXPECT_EQ(variables().removeData("k"), JXString(""));
  EXPECT_FALSE(variables().getData("k").isPresent());
  EXPECT_FALSE(variables().removeData("k").isPresent());
  variables().addData_withValue("k", "v");
  variables().addData_withValue("k", nullptr);
  EXPECT_FALSE(variables().getData("k").isPresent());
  variables().clearData();
  EXPECT_FALSE(variables().getData(kJXPredefinedVariable_Language).isPresent());
  EXPECT_EQ(variables().dynamicStore()->entries().size(), 0u);
}

TEST_F(VariableStore, DistinguishesNullKeyFromEmptyKey) {
  start();
  variables().addData_withValue("", "empty key");
  variables().addData_withValue(nullptr, "null key");
  EXPECT_FALSE(variables().getData(nullptr).isPresent());
  EXPECT_FALSE(variables().removeData(nullptr).isPresent());
  EXPECT_EQ(variables().getData(""), JXString("empty key"));
}

TEST_F(VariableStore, MergesAddedStoreAndIgnoresNull) {
  start();
  const auto store = JXDynamicStore::init();
  store->addData_withValue("new", "n");
  store->addData_withValue("#JX_LANGUAGE#", "fr");
  variables().addData(store);
  EXPECT_EQ(variables().getData("new"), JXString("n"));
  EXPECT_EQ(variables().language(), JXString("fr"));
  const std::size_t before = variables().dynamicStore()->entries().size();
  variables().addData(nullptr);
  EXPECT_EQ(variables().dynamicStore()->entries().size(), before);
  variables().addData(variables().dynamicStore());
  EXPECT_EQ(variables().dynamicStore()->entries().size(), before);
}

TEST_F(VariableStore, ReadsTimesFromCoreClock) {
  start();
  clock->set(1'700'000'000'999);
  EXPECT_EQ(variables().now(), 1'700'000'000);
  EXPECT_EQ(variables().nowMs(), 1'700'000'000'999);
  EXPECT_EQ(variables().nowString(), JXString("1700000000"));
  EXPECT_EQ(variables().nowMsString(), JXString("1700000000999"));
}

TEST_F(VariableStore, NeverReturnsNegativeRandomNumber) {
  start();
  platform->nextRandomBits = 7;
  EXPECT_EQ(variables().randomInt(), 7);
  platform->nextRandomBits = 0x7FFFFFFF;
  EXPECT_EQ(variables().randomInt(), 2147483647);
  platform->nextRandomBits = 0xFFFFFFFF;
  EXPECT_EQ(variables().randomInt(), 1) << "a negative number is negated";
  platform->nextRandomBits = 0x80000001;
  EXPECT_EQ(variables().randomInt(), 2147483647);
  platform->nextRandomBits = 0x80000000;
  EXPECT_GE(variables().randomInt(), 0) << "the only number that cannot be negated";
  platform->nextRandomBits = 12345;
  EXPECT_EQ(variables().randomString(), JXString("12345"));
}

TEST_F(VariableStore, AccessorsReadTheirVariable) {
  start();
  JXPredefinedVariables& v = variables();
  const auto reads = [&v](const char* key, JXString (JXPredefinedVariables::*accessor)() const) {
    v.addData_withValue(key, std::string("value of ") + key);
    EXPECT_EQ((v.*accessor)(), JXString(std::string("value of ") + key));
    v.removeData(key);
    EXPECT_FALSE((v.*accessor)().isPresent()) << key;
  };
  reads("#JX_MODEL#", &JXPredefinedVariables::phoneModel);
  reads("#JX_SYSNAME#", &JXPredefinedVariables::systemName);
  reads("#JX_SYSVERSION#", &JXPredefinedVariables::systemVersion);
  reads("#JX_NORVANE_VERSION#", &JXPredefinedVariables::norvaneVersion);
  reads("#JX_APPLICATION_VERSION#", &JXPredefinedVariables::applicationVersion);
  reads("#JX_APPLICATION_BUILD#", &JXPredefinedVariables::applicationBuild);
  reads("#JX_MANUFACTURER#", &JXPredefinedVariables::manufacturer);
  reads("#JX_LANGUAGE#", &JXPredefinedVariables::language);
  reads("#JX_CHARSET#", &JXPredefinedVariables::charset);
  reads("#JX_UNIQUE_ID#", &JXPredefinedVariables::uniqueIdentifier);
  reads("#JX_NUMBER_VISIT#", &JXPredefinedVariables::navNumberVisit);
  reads("#JX_NUMBER_SESSION#", &JXPredefinedVariables::numberSession);
  reads("#JX_CURRENT_VISIT_MS#", &JXPredefinedVariables::nav_TimestampCurrentVisitMs);
  reads("#JX_CURRENT_SESSION_MS#", &JXPredefinedVariables::timestampCurrentVisitMs);
  reads("#JX_LAST_CALL_MS#", &JXPredefinedVariables::timestampLastCallMs);
}

TEST_F(VariableStore, ReadsUserAgentFromCoreVariables) {
  start();
  variables().addData_withValue(kJXPredefinedVariable_UserAgent, "here");
  EXPECT_FALSE(variables().userAgent().isPresent());
  JXCoreVariables::sharedInstance().addData_withValue(kJXPredefinedVariable_UserAgent, "core");
  EXPECT_EQ(variables().userAgent(), JXString("core"));
}

TEST_F(VariableStore, StoresNewUserAgent) {
  start();
  variables();
  announce("Agent/1");
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("Agent/1"));
  announce("");
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString(""))
      << "an empty string is a value";
}

TEST_F(VariableStore, IgnoresUserAgentNotificationWithoutString) {
  start();
  variables();
  announce("Agent/1");
  announce(nullptr);
  announce(42);
  JXNotificationCenter::defaultCenter()->postNotification({kJXNotification_UserAgentAvailable});
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("Agent/1"));
}

TEST_F(VariableStore, IgnoresOtherNotifications) {
  start();
  JXJsonObject userInfo;
  userInfo.set(kJXUserInfo_DataKey, "Agent/1");
  variables().onNotificationReceived({kJXNotification_HitSent, nullptr, userInfo});
  EXPECT_FALSE(variable(kJXPredefinedVariable_UserAgent).isPresent());
}

TEST_F(VariableStore, ChangingTheCentreMovesTheListener) {
  start();
  const auto center = std::make_shared<JXNotificationCenter>();
  variables().changeNotificationCenter(center);
  announce("there", *center);
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("there"));
  variables().changeNotificationCenter(nullptr);
  announce("lost", *center);
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("there"));
  announce("back");
  EXPECT_EQ(variable(kJXPredefinedVariable_UserAgent), JXString("back"));
}

TEST_F(VariableStore, SetsFirstExecuteToTrueOnce) {
  start();
  EXPECT_FALSE(variable(kJXPredefinedVariable_FirstExecute).isPresent());
  variables().firstExecute();
  EXPECT_EQ(variable(kJXPredefinedVariable_FirstExecute), JXString("TRUE"));
  variables().firstExecute();
  EXPECT_EQ(variable(kJXPredefinedVariable_FirstExecute), JXString("FALSE"));
  variables().firstExecute();
  EXPECT_EQ(variable(kJXPredefinedVariable_FirstExecute), JXString("FALSE"));
  variables().addData_withValue(kJXPredefinedVariable_FirstExecute, "");
  variables().firstExecute();
  EXPECT_EQ(variable(kJXPredefinedVariable_FirstExecute), JXString("TRUE"))
      << "an empty string counts as not set";
  for (const auto& [key, value] : platform->defaults.entries())
    EXPECT_NE(key, "#JX_FIRST_EXECUTE#") << "it is not persisted";
}

TEST_F(VariableStore, ResetNewSessionClearsTheMark) {
  start();
  variables();
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("1"));
  variables().resetNewSession();
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("0"));
  variables().resetNewSession();
  EXPECT_EQ(variable(kJXPredefinedVariable_IsNewSession), JXString("0"));
}

TEST_F(VariableStore, UsesUniqueIdentifierAsAnonymousOrConsentId) {
  start();
  variables().addData_withValue("#JX_UNIQUE_ID#", "legacy");
  variables().useLegacyUniqueIDForAnonymousID();
  EXPECT_EQ(JXUser::sharedInstance().anonymous_id(), JXString("legacy"));
  EXPECT_FALSE(JXUser::sharedInstance().consentID().isPresent());
  variables().useLegacyUniqueIDForConsentID();
  EXPECT_EQ(JXUser::sharedInstance().consentID(), JXString("legacy"));
}

TEST_F(VariableStore, GettersReturnWhatSettersStored) {
  start();
  JXPredefinedVariables& v = variables();
  EXPECT_FALSE(v.isBackground());
  EXPECT_EQ(v.totalForegroundTransitions(), 1);
  EXPECT_EQ(v.totalForegroundTime(), 0u);
  EXPECT_EQ(v.deltaForeground(), 0u);
  EXPECT_EQ(v.totalBackgroundTime(), 0u);
  EXPECT_EQ(v.deltaBackground(), 0u);
  EXPECT_EQ(v.lastTime(), 1'700'000'000'000u);
  EXPECT_EQ(v.startUsage(), 0u);
  EXPECT_EQ(v.pid(), JXString("4242"));
  EXPECT_EQ(v.visitDuration(), 1'800'000u);
  EXPECT_NE(v.listenerDelegate(), nullptr);
  v.setIsBackground(true);
  v.setTotalForegroundTransitions(2);
  v.setTotalForegroundTime(3);
  v.setDeltaForeground(4);
  v.setTotalBackgroundTime(5);
  v.setDeltaBackground(6);
  v.setLastTime(7);
  v.setStartUsage(8);
  v.setPid("9");
  v.setVisitDuration(10);
  EXPECT_TRUE(v.isBackground());
  EXPECT_EQ(v.totalForegroundTransitions(), 2);
  EXPECT_EQ(v.totalForegroundTime(), 3u);
  EXPECT_EQ(v.deltaForeground(), 4u);
  EXPECT_EQ(v.totalBackgroundTime(), 5u);
  EXPECT_EQ(v.deltaBackground(), 6u);
  EXPECT_EQ(v.lastTime(), 7u);
  EXPECT_EQ(v.startUsage(), 8u);
  EXPECT_EQ(v.pid(), JXString("9"));
  EXPECT_EQ(v.visitDuration(), 10u);
}

TEST_F(VariableStore, SecondInitChangesNothing) {
  start();
  const auto store = variables().dynamicStore();
  const int writes = platform->defaults.setCount();
  clock->advance(1'000);
  EXPECT_EQ(variables().init(), &variables());
  EXPECT_EQ(variables().dynamicStore(), store);
  EXPECT_EQ(variables().lastTime(), 1'700'000'000'000u);
  EXPECT_EQ(platform->defaults.setCount(), writes);
}

TEST_F(VariableStore, InitReturnsNullAndBlocksLaterCallsIfBaseFails) {
  start();
  BaselessVariables failed;
  EXPECT_TRUE(neverReturns([&] { ASSERT_EQ(failed.init(), nullptr); }, [&] { failed.init(); }));
  EXPECT_TRUE(neverReturns([&] { failed.init(); }, [] { JXPredefinedVariables::sharedInstance(); }))
      << "the guard belongs to the class";
}

TEST_F(VariableStore, SecondInstanceStaysEmpty) {
  start();
  variables();
  JXPredefinedVariables other;
  EXPECT_EQ(other.init(), &other);
  EXPECT_EQ(other.dynamicStore(), nullptr);
  EXPECT_EQ(inLaunch([&]() -> std::string {
              other.addData_withValue("k", "v");
              other.addData(JXDynamicStore::init());
              other.firstExecute();
              other.computeTimeChangingVariables();
              other.resetNewSession();
              other.changeNotificationCenter(nullptr);
              other.clearData();
              const bool isEmpty = !other.getData("k").isPresent() &&
                                   !other.removeData("k").isPresent() &&
                                   !other.language().isPresent();
              return isEmpty ? "empty" : "filled";
            }),
            "empty");
}

TEST_F(VariableStore, SendsEventsWithoutStoreOrListener) {
  start();
  EXPECT_EQ(inLaunch([&]() -> std::string {
              const auto serverSide = make();
              variables().setDynamicStore(nullptr);
              variables().setListenerDelegate(nullptr);
              variables().changeNotificationCenter(nullptr);
              announce("Agent/1");
              platform->enterBackground();
              platform->enterForeground();
              execute(*serverSide);
              return std::to_string(requests().size());
            }),
            "1");
}

TEST_F(VariableStore, MergesAddedJsonObjectAndIgnoresNull) {
  start();
  JXJsonObject entries;
  entries.set("new", "n");
  entries.set("#JX_LANGUAGE#", "fr");
  entries.set("number", 5);
  variables().addData(entries);
  EXPECT_EQ(variables().getData("new"), JXString("n"));
  EXPECT_EQ(variables().language(), JXString("fr"));
  EXPECT_FALSE(variables().getData("number").isPresent());
  const std::size_t before = variables().dynamicStore()->entries().size();
  variables().addData(JXJsonObject(nullptr));
  EXPECT_EQ(variables().dynamicStore()->entries().size(), before);
}

}  // namespace
}  // namespace jx::test
