// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Requests of a source that no ServerSide of this process has: the way in which their own
// ServerSide started decides, whatever this process decides for its source. Version 0.1 did not
// store how it started, but only one that waits for consent writes the waiting marker.

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

  // Waits first, because the fence may overtake what is expected, on another connection.
  void expectSent(Life& life, const Events& expected, const char* when = "") {
    waitFor(expected);
    fence(life);
    EXPECT_EQ(takeArrived(), expected) << when;
  }
};

TEST_P(OtherSource, SendsUnmarkedRequestsByTheKindOfTheirServerSide) {
  server.refuse();
  leaveAllKinds();
  server.accept();
  Life life = begin(start());
  expectSent(life, {"enabled", "waiting", "always", "old_waiting"});
}

TEST_P(OtherSource, ReleasesNothingWhenThisSourceIsEnabled) {
  server.refuse();
  leaveAllKinds();
  server.accept();
  Life life = begin(start());
  life.perform("enable this");
  life.perform("execute this own");
  waitFor({"own"});
  expectSent(life, {"own", "enabled", "waiting", "always", "old_waiting"});
  life.kill();
  // The held requests are released by their own source.
  Life owner = begin("2", kAnother);
  owner.perform("enable this");
  waitFor({"consented", "asked", "old"});
}

TEST_P(OtherSource, HoldsMarkedRequestsExceptThoseOfAlwaysEnabled) {
  server.refuse();
  leaveAllKinds();
  stop(kAnother);
  server.accept();
  Life life = begin(start());
  expectSent(life, {"always"});
  life.perform("enable this");
  expectSent(life, {}, "after an enabling of this source");
  life.kill();
  Life owner = begin("0", kAnother);
  expectSent(owner, {}, "the mark holds until an explicit enabling");
  owner.perform("enable this");
  waitFor({"enabled", "waiting", "consented", "asked", "old", "old_waiting"});
}

INSTANTIATE_TEST_SUITE_P(Starts, OtherSource, ::testing::Values("0", "module", "1", "2"),
                         [](const ::testing::TestParamInfo<std::string>& row) {
                           return "Start_" + row.param;
                         });

}  // namespace
}  // namespace jx::test
