// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXConsentGate.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

constexpr std::uint32_t kFirst = 1;
constexpr std::uint32_t kSecond = 2;

class ConsentGate : public ::testing::Test {
 protected:
  void start(const void* serverSide, std::uint32_t source, JXStartState state,
             std::uint16_t mostStops = 0) {
    gate.started(serverSide, source, state, mostStops);
  }
  // A request that an earlier process left.
  static JXOutboxEntry earlier(std::uint32_t source, std::uint16_t stops = 0) {
    JXOutboxEntry entry;
    entry.source = source;
    entry.origin = {JXSendPolicy::Enabled, stops};
    entry.awaitsDecision = true;
    return entry;
  }
  bool sends(const JXOutboxEntry& entry) const { return gate.filter()->allows(entry); }
  // A request that a ServerSide, or another sender, executes now.
  bool sendsNewOf(const void* sender, std::uint32_t source) const {
    const JXConsentGate::Origin origin = gate.originOf(sender);
    JXOutboxEntry entry;
    entry.source = source;
    entry.origin = origin.stored;
    entry.awaitsDecision = origin.awaitsDecision;
    return sends(entry);
  }
  // The marks that changed since the last call, as "source:stops".
  std::string changes() {
    std::string text;
    for (const JXStopMark& mark : gate.takeChangedMarks())
      text += std::to_string(mark.source) + ":" + std::to_string(mark.stops) + " ";
    return text;
  }

  int objects[3] = {};
  const void* const a = &objects[0];
  const void* const b = &objects[1];
  const void* const other = &objects[2];
  JXConsentGate gate;
};

TEST_F(ConsentGate, StartDecidesForRequestsOfEarlierProcesses) {
  EXPECT_FALSE(sends(earlier(kFirst))) << "nothing is decided yet";
  start(a, kFirst, JXStartState::Enabled);
  EXPECT_TRUE(sends(earlier(kFirst)));
  start(b, kSecond, JXStartState::Disabled);
  EXPECT_FALSE(sends(earlier(kSecond)));
  EXPECT_TRUE(sends(earlier(kFirst))) << "another one's start changes nothing";
  gate.enable();
  EXPECT_TRUE(sends(earlier(kSecond)));
}

TEST_F(ConsentGate, StrictestStartOfASourceDecides) {
  start(a, kFirst, JXStartState::Disabled);
  start(b, kFirst, JXStartState::Enabled);
  EXPECT_FALSE(sends(earlier(kFirst)));
  EXPECT_TRUE(sendsNewOf(b, kFirst));
  EXPECT_FALSE(sendsNewOf(a, kFirst)) << "executed although it has not been enabled";
  gate.enable();
  EXPECT_TRUE(sendsNewOf(a, kFirst));
}

TEST_F(ConsentGate, StopHoldsEveryServerSideThatObeysIt) {
  start(a, kFirst, JXStartState::Enabled);
  start(b, kSecond, JXStartState::AlwaysEnabled);
  gate.stop(true);
  EXPECT_FALSE(sendsNewOf(a, kFirst));
  EXPECT_TRUE(sendsNewOf(b, kSecond));
  EXPECT_FALSE(sendsNewOf(other, kFirst));
  EXPECT_TRUE(gate.isPaused());
  gate.enable();
  EXPECT_TRUE(sendsNewOf(a, kFirst));
  EXPECT_TRUE(sendsNewOf(other, kFirst));
  EXPECT_FALSE(gate.isPaused());
}

TEST_F(ConsentGate, StartAfterAStopReleasesNothing) {
  start(a, kFirst, JXStartState::Enabled);
  gate.stop(true);
  start(b, kSecond, JXStartState::AlwaysEnabled);
  EXPECT_FALSE(sendsNewOf(a, kFirst));
  EXPECT_FALSE(sends(earlier(kFirst)));
}

TEST_F(ConsentGate, IsNotPausedIfEveryServerSideIsAlwaysEnabled) {
  start(a, kFirst, JXStartState::AlwaysEnabled);
  gate.stop(true);
  EXPECT_FALSE(gate.isPaused());
  start(b, kFirst, JXStartState::WaitingForConsent);
  EXPECT_TRUE(gate.isPaused());
}

TEST_F(ConsentGate, RecordsAStopForEverySourceThatObeysIt) {
  start(a, kFirst, JXStartState::WaitingForConsent);
  start(b, kSecond, JXStartState::AlwaysEnabled);
  EXPECT_EQ("", changes());
  gate.stop(true);
  EXPECT_EQ("1:1 ", changes());
  gate.stop(true);
  EXPECT_EQ("1:1 ", changes()) << "its file may have been deleted";
  gate.enable();
  EXPECT_EQ("1:0 2:0 ", changes());
  gate.enable();
  EXPECT_EQ("1:0 2:0 ", changes()) << "another process may have recorded a stop";
}

TEST_F(ConsentGate, RecordsAStopFromBeforeTheStart) {
  gate.stop(true);
  EXPECT_EQ("", changes());
  start(a, kFirst, JXStartState::Enabled);
  EXPECT_EQ("1:1 ", changes());
  EXPECT_FALSE(sendsNewOf(a, kFirst));
}

TEST_F(ConsentGate, DoesNotRecordAStateOfTheManager) {
  start(a, kFirst, JXStartState::Enabled);
  gate.stop(false);
  EXPECT_EQ("", changes());
  EXPECT_FALSE(sendsNewOf(a, kFirst));
  gate.release();
  EXPECT_TRUE(sendsNewOf(a, kFirst));
}

TEST_F(ConsentGate, RecordedStopHoldsOlderRequestsOnly) {
  gate.setMarks({{kFirst, 2}});
  start(a, kFirst, JXStartState::Enabled, 1);
  EXPECT_FALSE(sends(earlier(kFirst, 1)));
  EXPECT_TRUE(sendsNewOf(a, kFirst));
  EXPECT_EQ(2, gate.originOf(a).stored.stops);
  EXPECT_TRUE(sends(earlier(kFirst, 2))) << "what this process leaves is sent by the next one";
  gate.stop(true);
  EXPECT_EQ("1:3 ", changes()) << "this stop holds it too";
  gate.enable();
  EXPECT_EQ("1:0 ", changes());
  EXPECT_TRUE(sends(earlier(kFirst, 1)));
}

TEST_F(ConsentGate, CountsStopsFromTheQueueWhenThereIsNoMark) {
  start(a, kFirst, JXStartState::Enabled, 4);
  EXPECT_EQ(4, gate.originOf(a).stored.stops);
  gate.stop(true);
  EXPECT_EQ("1:5 ", changes());
}

TEST_F(ConsentGate, DamagedMarkHoldsAllAndIsReplaced) {
  gate.setMarks({{kFirst, JXStopMarks::kAllStops}});
  EXPECT_FALSE(sends(earlier(kFirst, 65'000)));
  start(a, kFirst, JXStartState::AlwaysEnabled, 7);
  EXPECT_EQ("1:8 ", changes());
  EXPECT_FALSE(sends(earlier(kFirst, 7)));
  EXPECT_EQ(8, gate.originOf(a).stored.stops);
}

TEST_F(ConsentGate, MarksThatCannotBeReadHoldEverySource) {
  gate.setMarks({}, false);
  EXPECT_FALSE(sends(earlier(kSecond)));
  start(a, kFirst, JXStartState::Enabled, 7);
  EXPECT_EQ("1:8 ", changes());
  EXPECT_FALSE(sends(earlier(kFirst, 7)));
  EXPECT_FALSE(sends(earlier(kSecond)));
  EXPECT_TRUE(sendsNewOf(a, kFirst));
  gate.enable();
  EXPECT_TRUE(sends(earlier(kFirst, 7)));
}

TEST_F(ConsentGate, NeverReachesTheNumberOfADamagedMark) {
  start(a, kFirst, JXStartState::Enabled, 65'534);
  gate.stop(true);
  EXPECT_EQ("1:65534 ", changes());
}

TEST_F(ConsentGate, EnablingKeepsMarksOfOtherSources) {
  gate.setMarks({{kFirst, 1}, {kSecond, 1}});
  start(a, kFirst, JXStartState::Disabled);
  gate.enable();
  EXPECT_EQ("1:0 ", changes());
  EXPECT_TRUE(sends(earlier(kFirst)));
  EXPECT_FALSE(sends(earlier(kSecond)));
}

TEST_F(ConsentGate, EnablingReleasesOnlySourcesOfItsServerSides) {
  JXOutboxEntry ofEarlierVersion = earlier(kSecond);
  ofEarlierVersion.origin.policy = JXSendPolicy::Unknown;
  gate.enable();
  start(a, kFirst, JXStartState::WaitingForConsent);
  gate.enable();
  EXPECT_FALSE(sends(ofEarlierVersion));
  start(b, kSecond, JXStartState::Enabled);
  EXPECT_TRUE(sends(ofEarlierVersion));
}

TEST_F(ConsentGate, StateOfTheManagerReleasesUnknownSourcesAtOnce) {
  JXOutboxEntry ofEarlierVersion = earlier(kSecond);
  ofEarlierVersion.origin.policy = JXSendPolicy::Unknown;
  gate.release();
  EXPECT_TRUE(sends(ofEarlierVersion));
}

TEST_F(ConsentGate, EnablingAfterAStateOfTheManagerReleasesUnknownSources) {
  JXOutboxEntry ofEarlierVersion = earlier(kSecond);
  ofEarlierVersion.origin.policy = JXSendPolicy::Unknown;
  gate.stop(false);
  EXPECT_FALSE(sends(ofEarlierVersion));
  gate.enable();
  EXPECT_TRUE(sends(ofEarlierVersion));
}

TEST_F(ConsentGate, StoresThePolicyOfTheServerSide) {
  start(a, kFirst, JXStartState::Enabled);
  EXPECT_EQ(JXSendPolicy::Enabled, gate.originOf(a).stored.policy);
  start(a, kFirst, JXStartState::AlwaysEnabled);
  EXPECT_EQ(JXSendPolicy::AlwaysEnabled, gate.originOf(a).stored.policy);
  start(a, kFirst, JXStartState::Disabled);
  EXPECT_EQ(JXSendPolicy::AsksFirst, gate.originOf(a).stored.policy);
  start(a, kFirst, JXStartState::WaitingForConsent);
  EXPECT_EQ(JXSendPolicy::AsksFirst, gate.originOf(a).stored.policy);
  gate.ended(a);
  EXPECT_EQ(JXSendPolicy::Unknown, gate.originOf(a).stored.policy);
  EXPECT_EQ(JXSendPolicy::Unknown, gate.originOf(nullptr).stored.policy);
}

TEST_F(ConsentGate, FollowsAServerSideThatBecomesAlwaysEnabled) {
  start(a, kFirst, JXStartState::Enabled);
  gate.setAlwaysEnabled(a, true);
  gate.stop(true);
  EXPECT_TRUE(sendsNewOf(a, kFirst));
  gate.setAlwaysEnabled(a, false);
  EXPECT_FALSE(sendsNewOf(a, kFirst));
  gate.setAlwaysEnabled(other, true);
  EXPECT_FALSE(sendsNewOf(other, kFirst));
}

TEST_F(ConsentGate, FollowsAServerSideToAnotherUrl) {
  start(a, kFirst, JXStartState::Disabled);
  gate.moved(a, kSecond, 0);
  EXPECT_FALSE(sends(earlier(kSecond)));
  EXPECT_FALSE(sendsNewOf(a, kSecond));
  gate.enable();
  EXPECT_TRUE(sends(earlier(kSecond)));
  EXPECT_TRUE(sendsNewOf(a, kSecond));
  gate.moved(other, kFirst, 0);
  EXPECT_EQ(JXSendPolicy::Unknown, gate.originOf(other).stored.policy);
}

}  // namespace
}  // namespace jx
