// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A stop in one process, and how it outlives the process.

#include <string>

#include "tests/consent/ConsentScenario.h"

namespace jx::test {
namespace {

constexpr int kKills = 20;

class Stop : public ConsentScenario {
 protected:
  // Starts a process with the ServerSides "this" and "that" of different sources, default behaviour
  // 0, and an event of each in the queue. The server refuses connections.
  Life beginWithTwo() {
    server.refuse();
    Life life = begin("0");
    life.perform("create that 0 that");
    life.perform("execute this first");
    life.perform("execute that second");
    return life;
  }
};

TEST_F(Stop, HoldsRequestsOfAllServerSidesThatAreNotAlwaysEnabled) {
  Life life = beginWithTwo();
  life.perform("create steady 1 steady");
  life.perform("execute steady third");
  life.perform("disable this");
  server.accept();
  waitFor({"third"});
  fence(life);
  EXPECT_EQ(takeArrived(), Events{"third"});
  life.perform("enable that");
  waitFor({"first", "second"});
}

TEST_F(Stop, IsNotEndedByANewAlwaysEnabledServerSide) {
  Life life = beginWithTwo();
  life.perform("disable this");
  server.accept();
  life.perform("create steady 1 steady");
  life.perform("execute steady third");
  fence(life);
  EXPECT_EQ(takeArrived(), Events{"third"});
  EXPECT_EQ(life.perform("state this"), "2");
  life.perform("enable this");
  waitFor({"first", "second"});
}

TEST_F(Stop, IsObeyedAlthoughAnAlwaysEnabledServerSideExisted) {
  server.refuse();
  Life life = begin();
  life.perform("create steady 1 steady");
  life.perform("create this 0 key");
  life.perform("execute this first");
  life.perform("disable this");
  server.accept();
  fence(life);
  EXPECT_EQ(takeArrived(), Events());
  life.perform("enable this");
  waitFor({"first"});
}

TEST_F(Stop, OfADisabledStartHoldsNothingOfAnotherServerSide) {
  Life life = beginWithTwo();
  life.perform("create disabled 2 disabled");
  server.accept();
  waitFor({"first", "second"});
  life.perform("execute this third");
  waitFor({"third"});
}

TEST_F(Stop, HoldsInTheNextProcessAfterAKill) {
  server.refuse();
  int kills = 0;
  for (int i = 0; i < kKills; ++i) {
    Life life = begin("0");
    life.perform("enable this");  // the mark of the previous stop is removed
    ASSERT_TRUE(waitForMarks(0));
    life.perform("execute this event-" + std::to_string(i));
    if (!life.disableAndKill("this")) continue;
    ++kills;
    ASSERT_EQ(marks().size(), 1u) << "kill " << i;
  }
  EXPECT_GT(kills, 0);
  stop();  // the last stop may have been slow
  server.accept();
  Life next = begin("0");
  fence(next);
  EXPECT_EQ(takeArrived(), Events());
  next.perform("execute this new");
  waitFor({"new"});
  fence(next);
  EXPECT_EQ(takeArrived(), Events{"new"});
  next.perform("enable this");
  waitFor({"event-0", "event-" + std::to_string(kKills - 1)});
}

TEST_F(Stop, HoldsInEveryLaterProcessUntilAnEnabling) {
  server.refuse();
  leave("0", {"old"});
  stop();
  server.accept();
  for (int i = 0; i < 3; ++i) {
    Life life = begin("0");
    fence(life);
    life.kill();
  }
  EXPECT_EQ(takeArrived(), Events());
  Life last = begin("0");
  last.perform("enable this");
  waitFor({"old"});
  EXPECT_TRUE(waitForMarks(0));
}

TEST_F(Stop, HoldsInThisProcessOnAReadOnlyDisk) {
  server.refuse();
  Life life = begin("0");
  life.perform("execute this first");
  life.perform("disk readonly");
  life.perform("disable this");
  life.perform("disable this");
  server.accept();
  life.perform("disk none");  // the events of the fence are stored
  fence(life);
  EXPECT_EQ(takeArrived(), Events());
  const std::string log = life.end();
  std::size_t messages = 0;
  for (std::size_t at = 0; (at = log.find("Cannot record the stop", at)) != std::string::npos; ++at)
    ++messages;
  EXPECT_EQ(messages, 1u) << log;
}

TEST_F(Stop, ReturnsWhileTheDiskHangs) {
  server.refuse();
  Life life = begin("0");
  life.perform("execute this first");
  life.perform("disk hanging");
  life.perform("disable this");  // fails unless it returns
  EXPECT_EQ(life.perform("state this"), "2");
  server.accept();
  life.perform("disk none");
  fence(life);
  EXPECT_EQ(takeArrived(), Events());
  EXPECT_TRUE(waitForMarks(1)) << "the mark is written when the disk works again";
}

// Two processes at once with different decisions.
class TwoProcesses : public ConsentScenario {};

TEST_F(TwoProcesses, DecideForTheirOwnSources) {
  server.refuse();
  Life sending = begin("0", "sending");
  Life stopped = begin("0", "stopped");
  sending.perform("execute this sent");
  stopped.perform("execute this held");
  stopped.perform("disable this");
  server.accept();
  waitFor({"sent"});
  fence(sending);
  fence(stopped);
  EXPECT_EQ(takeArrived(), Events{"sent"});
  // The other process takes over the queue of the one that ended, and its decision.
  stopped.kill();
  fence(sending);
  sending.kill();
  Life next = begin("0", "sending");
  fence(next);
  EXPECT_EQ(takeArrived(), Events());
  next.kill();
  Life enabled = begin("2", "stopped");
  enabled.perform("enable this");
  waitFor({"held"});
}

TEST_F(TwoProcesses, KeepTheirDecisionsForTheSameSource) {
  server.refuse();
  Life sending = begin("0");
  Life stopped = begin("0");
  stopped.perform("execute this held");
  stopped.perform("disable this");
  server.accept();
  sending.perform("execute this sent");
  waitFor({"sent"});
  fence(sending);
  fence(stopped);
  EXPECT_EQ(takeArrived(), Events{"sent"});
  stopped.kill();
  fence(sending);
  EXPECT_EQ(takeArrived(), Events()) << "the mark holds what the other process left";
  sending.perform("enable this");
  EXPECT_TRUE(waitForMarks(0));
  sending.kill();
  Life next = begin("0");
  waitFor({"held"});
}

TEST_F(TwoProcesses, AlwaysEnabledIsNotAffectedByMarks) {
  server.refuse();
  Life steady = begin("1");
  steady.perform("execute this first");
  Life stopped = begin("0");
  stopped.perform("execute this held");
  stopped.perform("disable this");
  server.accept();
  waitFor({"first"});
  steady.perform("execute this second");
  waitFor({"second"});
  stopped.kill();
  fence(steady);
  EXPECT_EQ(takeArrived(), (Events{"first", "second"}));
}

}  // namespace
}  // namespace jx::test
