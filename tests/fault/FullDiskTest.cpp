// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A disk that is full at the first, the second, ... the last system call of a run. Each launch of
// the library runs in its own process.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/storage/JXEventId.h"
#include "jx/core/transfer/JXNetworkManager.h"
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

// The output of the two launches of one position.
struct Observations {
  std::map<std::string, bool> accepted;                 // by event ID; false once a call had failed
  std::set<std::string> whileRefused;                   // executed while the server was unreachable
  std::map<std::string, std::set<std::string>> bodies;  // received by the server, by event ID
  std::map<std::string, int> deliveries;                // by event ID
  std::string rejected;
  long calls = 0;
  long failed = 0;
  int executes = 0;
};

class FullDiskAtEveryCall : public ::testing::Test {
 protected:
  // The setup and the output of one launch, as lines of words.
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
      JXTestServerOptions options;
      options.tls = false;
      options.port = port;
      return options;
    }
    void execute(int times, const FailingDisk& disk, const char* what) {
      for (int i = 0; i < times; ++i) {
        serverSide->execute(JXCustomEvent::initWithName("quiz"));
        text << what << ' ' << executed.toStdString() << ' ' << disk.failed() << '\n';
      }
    }
    static bool deliverAll() { return JXNetworkManager::sharedInstance().flush(20s); }
    void writeBodies() {
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
  // that is rejected, and some while the server is unreachable.
  std::string failingLaunch(long first, long end, FailingDisk::Write write) const {
    return inLaunch(
        [&] {
          // Must outlive the library.
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
          process.writeBodies();
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
          process.writeBodies();
          return process.text.str();
        },
        Ending::Exit);
  }

  static Observations read(const std::string& text) {
    Observations observed;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
      std::string id, value;
      EXPECT_TRUE(words >> id >> value) << text;
      if (word == "body") {
        // The first request of the rejected event is not a delivery.
        if (id != observed.rejected || observed.bodies.count(id) != 0) ++observed.deliveries[id];
        observed.bodies[id].insert(value);
      } else if (word == "calls") {
        observed.calls = std::stol(id);
        observed.failed = std::stol(value);
      } else {
        EXPECT_TRUE(word == "execute" || word == "reject" || word == "refused") << text;
        observed.accepted[id] = value == "0";
        ++observed.executes;
        if (word == "reject") observed.rejected = id;
        if (word == "refused") observed.whileRefused.insert(id);
      }
    }
    return observed;
  }
  Observations play(long first, long end, FailingDisk::Write write) const {
    std::filesystem::remove_all(folder.path("state"));
    const std::string text = failingLaunch(first, end, write);
    return read(text + healthyLaunch());
  }
  // Expects that every execute returned and that all attempts of an event have the same bytes.
  static void expectSound(const Observations& observed) {
    EXPECT_EQ(observed.executes, kExecutes);
    EXPECT_EQ(observed.accepted.size(), static_cast<std::size_t>(kExecutes));
    for (const auto& [id, bodies] : observed.bodies) {
      EXPECT_EQ(bodies.size(), 1u) << id;
      EXPECT_EQ(observed.accepted.count(id), 1u) << id;
    }
  }

  const TemporaryFolder folder;
  const ReservedPort port;
};

TEST_F(FullDiskAtEveryCall, LosesAndRepeatsNothingWhenOneCallFails) {
  long positions = 0;
  std::uint64_t delivered = 0, rejected = 0;
  for (long call = 0;; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    const Observations observed = play(call, call + 1, FailingDisk::Write::Half);
    expectSound(observed);
    for (const auto& [id, early] : observed.accepted) {
      const int times = observed.deliveries.count(id) != 0 ? observed.deliveries.at(id) : 0;
      EXPECT_EQ(times, id == observed.rejected ? 0 : 1) << id;
      delivered += static_cast<std::uint64_t>(times);
    }
    ++rejected;
    if (observed.failed == 0 || HasFailure()) break;
    ++positions;
  }
  std::cout << "[ RESULTS  ] disk full for one call, at each of " << positions
            << " calls: " << delivered << " deliveries\n";
  EXPECT_GT(positions, 40);
  writeFaultRow({"10.01", "disk full for one system call, at each of " + std::to_string(positions),
                 "failed with ENOSPC, a write after half of its bytes",
                 "delivered every event once, in this process or the next", delivered, 0, rejected,
                 0});
}

TEST_F(FullDiskAtEveryCall, LosesNoAcceptedEventWhenAllLaterCallsFail) {
  long positions = 0;
  std::uint64_t delivered = 0, repeated = 0, rejected = 0, lost = 0;
  for (long call = 0;; ++call) {
    SCOPED_TRACE("calls from " + std::to_string(call));
    const Observations observed = play(call, kNever, FailingDisk::Write::Nothing);
    expectSound(observed);
    for (const auto& [id, early] : observed.accepted) {
      const int times = observed.deliveries.count(id) != 0 ? observed.deliveries.at(id) : 0;
      if (id == observed.rejected) {
        // Without a dead letter on disk, the next process sends it again and the server accepts it.
        (times == 0 ? rejected : delivered) += 1;
        continue;
      }
      EXPECT_TRUE(times > 0 || (!early && observed.whileRefused.count(id) != 0)) << id;
      delivered += times > 0 ? 1 : 0;
      repeated += times > 1 ? 1 : 0;
      lost += times == 0 ? 1 : 0;
    }
    if (observed.failed == 0 || HasFailure()) break;
    ++positions;
  }
  std::cout << "[ RESULTS  ] disk full from each of " << positions << " calls on: " << delivered
            << " events delivered, " << repeated << " of them again after the restart, " << lost
            << " lost that were only in memory\n";
  EXPECT_GT(positions, 40);
  writeFaultRow({"10.02", "disk full from then on, at each of " + std::to_string(positions),
                 "failed with ENOSPC until the process ended",
                 "delivered every event that was accepted before; " + std::to_string(lost) +
                     " events that were only in memory were lost with the process, " +
                     std::to_string(repeated) +
                     " whose acknowledgement could not be stored were sent again",
                 delivered, 0, rejected, lost});
}

}  // namespace
}  // namespace jx::test
