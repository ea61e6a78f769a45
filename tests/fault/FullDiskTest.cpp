// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A disk that is full at the first, the second, ... the last system call of a run: whole launches
// of the library, each in a process of its own.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/ServerSide.h"
#include "jx/platform/JXManualClock.h"
#include "tests/fault/FaultTable.h"
#include "tests/support/JXFailingDisk.h"
#include "tests/support/JXFakePlatform.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/Launch.h"
#include "tests/support/ReservedPort.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;

constexpr long kNever = 1'000'000;
constexpr int kExecutes = 12;

// What the two launches of one position told.
struct Told {
  std::map<std::string, bool> accepted;                 // by event id; false once a call had failed
  std::set<std::string> whileRefused;                   // executed while the server was away
  std::map<std::string, std::set<std::string>> bodies;  // by event id, of what the server read
  std::map<std::string, int> deliveries;                // by event id
  std::string rejected;
  long calls = 0;
  long failed = 0;
  int executes = 0;
};

class FullDiskAtEveryCall : public ::testing::Test {
 protected:
  // Everything of one launch but the events; told as lines of words.
  class Process {
   public:
    Process(const std::string& state, int port) : server(options(port)) {
      JXCoreConfiguration configuration;
      const auto platform = std::make_shared<JXFakePlatform>();
      platform->hasUserDefaults = false;
      configuration.platform = platform;
      configuration.clock = std::make_shared<JXManualClock>(1'790'000'000'000);
      configuration.storageFolder = state;
      configuration.collectionHost = server.url("");
      configuration.retryTimings.initialBackoff = 1ms;
      configuration.retryTimings.maxBackoff = 4ms;
      configuration.retryTimings.syncDelay = 1ms;
      configuration.retryTimings.startHold = 0ms;
      configuration.logLevel = 0;
      JXCoreConfiguration::set(configuration);
      serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
      JXNotificationCenter::defaultCenter()->addObserver(
          this, kJXNotification_HTTPRequest, [this](const JXNotification& posted) {
            executed = eventIdOf(posted.userInfo.get(kJXUserInfo_POSTData).string().view());
          });
    }
    ~Process() { JXNotificationCenter::defaultCenter()->removeObserver(this); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    static JXTestServerOptions options(int port) {
      JXTestServerOptions made;
      made.tls = false;
      made.port = port;
      return made;
    }
    void execute(int times, const FailingDisk& disk, const char* what) {
      for (int i = 0; i < times; ++i) {
        serverSide->execute(JXCustomEvent::initWithName("quiz"));
        text << what << ' ' << executed.toStdString() << ' ' << disk.failed() << '\n';
      }
    }
    static bool deliverAll() { return JXNetworkManager::sharedInstance().flush(20s); }
    void tellBodies() {
      for (const JXTestRequest& request : server.requests()) {
        text << "body " << eventIdOf(request.body).toStdString() << ' '
             << std::hash<std::string>()(request.body) << '\n';
      }
    }

    JXTestServer server;
    std::shared_ptr<ServerSide> serverSide;
    JXString executed;
    std::ostringstream text;
  };

  // A launch on the failing disk: events that are delivered, in the background and after it, one
  // that is rejected, and some that the server is not there for.
  std::string failingLaunch(long first, long end, FailingDisk::Write write) const {
    return inLaunch(
        [&] {
          // Not ended before the library is.
          static const auto* const disk = new FailingDisk(first, end, write);
          Process process(folder.path("state"), port.number());
          process.execute(4, *disk, "execute");
          if (!Process::deliverAll()) process.text << "late\n";
          JXNotificationCenter::defaultCenter()->postNotification(
              {UIApplicationDidEnterBackgroundNotification});
          process.execute(3, *disk, "execute");
          JXNotificationCenter::defaultCenter()->postNotification(
              {UIApplicationWillEnterForegroundNotification});
          if (!Process::deliverAll()) process.text << "late\n";
          JXTestAnswer refusal;
          refusal.status = 400;
          process.server.answerNext(refusal);
          process.execute(1, *disk, "reject");
          if (!Process::deliverAll()) process.text << "late\n";
          process.server.refuse();
          process.execute(4, *disk, "refused");
          process.tellBodies();
          process.text << "calls " << disk->calls() << ' ' << disk->failed() << '\n';
          return process.text.str();
        },
        Ending::Exit);
  }
  std::string healthyLaunch() const {
    return inLaunch(
        [&] {
          Process process(folder.path("state"), port.number());
          if (!Process::deliverAll()) process.text << "late\n";
          process.tellBodies();
          return process.text.str();
        },
        Ending::Exit);
  }

  static Told read(const std::string& text) {
    Told told;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
      std::string id, value;
      EXPECT_TRUE(words >> id >> value) << text;
      if (word == "body") {
        // The first time, the rejected one was refused.
        if (id != told.rejected || told.bodies.count(id) != 0) ++told.deliveries[id];
        told.bodies[id].insert(value);
      } else if (word == "calls") {
        told.calls = std::stol(id);
        told.failed = std::stol(value);
      } else {
        EXPECT_TRUE(word == "execute" || word == "reject" || word == "refused") << text;
        told.accepted[id] = value == "0";
        ++told.executes;
        if (word == "reject") told.rejected = id;
        if (word == "refused") told.whileRefused.insert(id);
      }
    }
    return told;
  }
  Told play(long first, long end, FailingDisk::Write write) const {
    std::filesystem::remove_all(folder.path("state"));
    const std::string text = failingLaunch(first, end, write);
    return read(text + healthyLaunch());
  }
  // Whatever failed: each execute came back, and each try of an event had the same bytes.
  static void expectSound(const Told& told) {
    EXPECT_EQ(told.executes, kExecutes);
    EXPECT_EQ(told.accepted.size(), static_cast<std::size_t>(kExecutes));
    for (const auto& [id, bodies] : told.bodies) {
      EXPECT_EQ(bodies.size(), 1u) << id;
      EXPECT_EQ(told.accepted.count(id), 1u) << id;
    }
  }

  const TemporaryFolder folder;
  const ReservedPort port;
};

TEST_F(FullDiskAtEveryCall, ForOneCallLosesAndRepeatsNothing) {
  long positions = 0;
  std::uint64_t delivered = 0, rejected = 0;
  for (long call = 0;; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    const Told told = play(call, call + 1, FailingDisk::Write::Half);
    expectSound(told);
    for (const auto& [id, early] : told.accepted) {
      const int times = told.deliveries.count(id) != 0 ? told.deliveries.at(id) : 0;
      EXPECT_EQ(times, id == told.rejected ? 0 : 1) << id;
      delivered += static_cast<std::uint64_t>(times);
    }
    ++rejected;
    if (told.failed == 0 || HasFailure()) break;
    ++positions;
  }
  std::cout << "[ FIGURES  ] a full disk for one call, at each of " << positions
            << " calls: " << delivered << " deliveries\n";
  EXPECT_GT(positions, 40);
  writeFaultRow({"10.01", "disk full for one system call, at each of " + std::to_string(positions),
                 "failed with ENOSPC, a write after half of its bytes",
                 "delivered every event once, in this process or the next", delivered, 0, rejected,
                 0});
}

TEST_F(FullDiskAtEveryCall, FromThatCallOnLosesNothingThatWasAcceptedBefore) {
  long positions = 0;
  std::uint64_t delivered = 0, repeated = 0, rejected = 0, lost = 0;
  for (long call = 0;; ++call) {
    SCOPED_TRACE("calls from " + std::to_string(call));
    const Told told = play(call, kNever, FailingDisk::Write::Nothing);
    expectSound(told);
    for (const auto& [id, early] : told.accepted) {
      const int times = told.deliveries.count(id) != 0 ? told.deliveries.at(id) : 0;
      if (id == told.rejected) {
        // Without a dead letter on the disk the next process asks again, and the server takes it.
        (times == 0 ? rejected : delivered) += 1;
        continue;
      }
      EXPECT_TRUE(times > 0 || (!early && told.whileRefused.count(id) != 0)) << id;
      delivered += times > 0 ? 1 : 0;
      repeated += times > 1 ? 1 : 0;
      lost += times == 0 ? 1 : 0;
    }
    if (told.failed == 0 || HasFailure()) break;
    ++positions;
  }
  std::cout << "[ FIGURES  ] a full disk from each of " << positions << " calls on: " << delivered
            << " events delivered, " << repeated << " of them again after the restart, " << lost
            << " that were in memory only lost with the process\n";
  EXPECT_GT(positions, 40);
  writeFaultRow({"10.02", "disk full from then on, at each of " + std::to_string(positions),
                 "failed with ENOSPC until the process ended",
                 "delivered every event that was accepted before; those in memory only ended with "
                 "the process (" +
                     std::to_string(lost) + "), those whose settling found no room came again (" +
                     std::to_string(repeated) + ")",
                 delivered, 0, rejected, lost});
}

}  // namespace
}  // namespace jx::test
