// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Requests of a source that no ServerSide of this process has: the way in which their own
// ServerSide started decides, whatever this process decides for its source.

#include <string>

#include "tests/consent/ConsentScenario.h"

namespace jx::test {
namespace {

constexpr const char* kAnother = "another";

class OtherSource : public ConsentScenario, public ::testing::WithParamInterface<std::string> {
 protected:
  std::string start() const { return GetParam(); }

  void leaveAllKinds() const {
    leaveFromOldVersion({"old"}, {"old_waiting"}, kAnother);
    leave("0", {"enabled"}, kAnother);
    leave("module", {"waiting"}, kAnother);
    leaveEnabled("module", {"consented"}, kAnother);
    leaveEnabled("2", {"asked"}, kAnother);
    leave("1", {"always"}, kAnother);
  }

  // Sends an event of the source of this process too: its own decision changes nothing.
  Events sentBeforeAndAfterEnabling(Life& life) {
    fence(life);
    life.perform("enable this");
    life.perform("execute this own");
    waitFor({"own"});
    fence(life);
    Events events = takeArrived();
    events.erase("own");
    return events;
  }
};

TEST_P(OtherSource, SendsUnmarkedRequestsByTheKindOfTheirServerSide) {
  server.refuse();
  leaveAllKinds();
  server.accept();
  Life life = begin(start());
  EXPECT_EQ(sentBeforeAndAfterEnabling(life), (Events{"enabled", "waiting", "always"}));
  life.kill();
  // The held requests are released by their own source.
  Life owner = begin("2", kAnother);
  owner.perform("enable this");
  waitFor({"consented", "asked", "old", "old_waiting"});
}

TEST_P(OtherSource, HoldsMarkedRequestsExceptThoseOfAlwaysEnabled) {
  server.refuse();
  leaveAllKinds();
  stop(kAnother);
  server.accept();
  Life life = begin(start());
  EXPECT_EQ(sentBeforeAndAfterEnabling(life), Events{"always"});
  life.kill();
  Life owner = begin("0", kAnother);
  fence(owner);
  EXPECT_EQ(takeArrived(), Events()) << "the mark holds until an explicit enabling";
  owner.perform("enable this");
  waitFor({"enabled", "waiting", "consented", "asked", "old", "old_waiting"});
}

INSTANTIATE_TEST_SUITE_P(Starts, OtherSource, ::testing::Values("0", "module", "1", "2"),
                         [](const ::testing::TestParamInfo<std::string>& row) {
                           return "Start_" + row.param;
                         });

}  // namespace
}  // namespace jx::test
