// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The first decision of a process: which requests of earlier processes it sends. The tests print
// the rows of a Markdown table; to print all of it:
//
//   jx_tests_consent --gtest_filter='*StartTable*' | grep '^|'

#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <tuple>

#include "tests/consent/ConsentScenario.h"

namespace jx::test {
namespace {

/// How the process starts: its default behaviour, or "module" for 0 with a consent module.
using Start = std::string;
/// The mark of a stop in the folder: "none", "own", "other" (source) or "damaged" (own).
using Mark = std::string;
/// The requests that earlier processes left.
using Queue = std::string;

const std::map<Queue, Events> kQueues{
    {"empty", {}},
    {"enabled", {"enabled"}},
    {"waiting", {"waiting"}},
    {"always", {"always"}},
    {"mixed", {"enabled", "waiting", "asked", "always"}},
    {"old", {"old", "old_waiting"}},
};

// The requests that leave before any decision of this process, out of all that may be queued.
const std::map<Start, Events> kSentWithoutMark{
    {"0", {"enabled", "waiting", "asked", "always", "old", "old_waiting"}},
    {"module", {"waiting", "always", "old_waiting"}},
    {"1", {"enabled", "waiting", "asked", "always", "old", "old_waiting"}},
    {"2", {"always"}},
};
const Events kSentWithMark{"always"};

Events intersection(const Events& some, const Events& others) {
  Events both;
  for (const std::string& event : some) {
    if (others.count(event) != 0) both.insert(event);
  }
  return both;
}

Events difference(const Events& some, const Events& others) {
  Events left;
  for (const std::string& event : some) {
    if (others.count(event) == 0) left.insert(event);
  }
  return left;
}

class StartTable : public ConsentScenario,
                   public ::testing::WithParamInterface<std::tuple<Start, Mark, Queue>> {
 protected:
  static void SetUpTestSuite() {
    std::puts(
        "| default behaviour | mark of a stop | queued | sent at the start | after execute | "
        "after enableServerSide | after disableServerSide |\n|---|---|---|---|---|---|---|");
  }

  Start start() const { return std::get<0>(GetParam()); }
  Mark mark() const { return std::get<1>(GetParam()); }
  Queue queue() const { return std::get<2>(GetParam()); }
  Events queued() const { return kQueues.at(queue()); }

  Events sentAtStart() const {
    const bool isStopped = mark() == "own" || mark() == "damaged";
    return intersection(queued(), isStopped ? kSentWithMark : kSentWithoutMark.at(start()));
  }

  void leaveQueue() const {
    if (queue() == "old") leaveFromOldVersion({"old"}, {"old_waiting"});
    const Events events = queued();
    if (events.count("enabled") != 0) leave("0", {"enabled"});
    if (events.count("waiting") != 0) leave("module", {"waiting"});
    if (events.count("asked") != 0) leaveEnabled("2", {"asked"});
    if (events.count("always") != 0) leave("1", {"always"});
  }

  void leaveMark() const {
    if (mark() == "none") return;
    stop(mark() == "other" ? "another" : "key");
    ASSERT_EQ(marks().size(), 1u) << "one mark per source";
    if (mark() == "damaged") std::ofstream(marks().front(), std::ios::trunc) << "\x01garbage";
  }

  // Fences, unless everything that is expected has to arrive anyway.
  Events sentUntilNow(Life& life, const Events& expected) {
    waitFor(expected);
    fence(life);
    return takeArrived();
  }

  void printRow(const Events& atStart, const Events& onEvent, const Events& onEnabling,
                const Events& onStop) const {
    const std::string behaviour = start() == "module" ? "0, with module" : start();
    std::printf("| %s | %s | %s | %s | %s | %s | %s |\n", behaviour.c_str(), mark().c_str(),
                describe(queued()).c_str(), describe(atStart).c_str(), describe(onEvent).c_str(),
                describe(onEnabling).c_str(), describe(onStop).c_str());
  }
};

TEST_P(StartTable, SendsOnlyWhatWasDecided) {
  server.refuse();
  leaveQueue();
  leaveMark();
  server.accept();
  Life life = begin(start());
  const Events atStart = sentUntilNow(life, sentAtStart());
  EXPECT_EQ(atStart, sentAtStart()) << "before any decision";

  life.perform("execute this new");
  const Events fresh = start() == "2" ? Events() : Events{"new"};
  const Events onEvent = sentUntilNow(life, fresh);
  EXPECT_EQ(onEvent, fresh) << "after an event was executed";

  life.perform("enable this");
  const Events held = difference(queued(), sentAtStart());
  const Events onEnabling = sentUntilNow(life, held);
  EXPECT_EQ(onEnabling, held) << "after enableServerSide";

  server.refuse();
  life.perform("execute this late");
  life.perform("disable this");
  server.accept();
  const Events ofAlwaysEnabled = start() == "1" ? Events{"late"} : Events();
  const Events onStop = sentUntilNow(life, ofAlwaysEnabled);
  EXPECT_EQ(onStop, ofAlwaysEnabled) << "after disableServerSide";
  printRow(atStart, onEvent, onEnabling, onStop);
}

std::string nameOf(const ::testing::TestParamInfo<std::tuple<Start, Mark, Queue>>& info) {
  return "Start_" + std::get<0>(info.param) + "_Mark_" + std::get<1>(info.param) + "_Queue_" +
         std::get<2>(info.param);
}

INSTANTIATE_TEST_SUITE_P(All, StartTable,
                         ::testing::Combine(::testing::Values("0", "module", "1", "2"),
                                            ::testing::Values("none", "own", "other", "damaged"),
                                            ::testing::Values("empty", "enabled", "waiting",
                                                              "always", "mixed", "old")),
                         nameOf);

}  // namespace
}  // namespace jx::test
