// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A ServerSide whose process is forked.

#include <gmock/gmock.h>
#include <spawn.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXApplication.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXUser.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/JXState.h"
#include "jx/facade/JXStoredData.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;

class ServerSideFork : public ServerSideFixture {
 protected:
  // What the parent and its children log (up to level 3) and report, each with "child " in front
  // when it comes from a child.
  struct Reported {
    const pid_t parent = ::getpid();
    std::atomic<int> delivered{0};
    LinePipe fromChildren;

    void log(int level, std::string_view message) const {
      if (::getpid() != parent && level <= 3) fromChildren.write(message);
    }
    void report(const JXDelivery& delivery) {
      if (::getpid() != parent) fromChildren.write("a delivery");
      if (delivery.outcome == JXDeliveryOutcome::Delivered) ++delivered;
    }
  };

  ServerSideFork() {
    configuration.storageFolder = storage().path();
    configuration.collectionHost = server.url("");
    configuration.dryRun = false;
    configuration.caFile = server.caFile();
    configuration.proxy = "";
    configuration.logSink = [all = reported](int level, std::string_view message) {
      all->log(level, message);
    };
    configuration.onDelivery = [all = reported](const JXDelivery& each) { all->report(each); };
    platform->hasUserDefaults = false;
  }

  static void executeNamed(ServerSide& serverSide, const std::string& name) {
    serverSide.execute(JXCustomEvent::initWithName(name));
  }
  // Returns the names of the events that the server received, sorted.
  std::vector<std::string> received() const {
    std::vector<std::string> names;
    for (const std::string& body : server.bodies()) {
      const std::string key = R"("event_name": ")";
      const std::size_t at = body.find(key) + key.size();
      names.push_back(body.substr(at, body.find('"', at) - at));
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  static JXOutboxCounters outbox() { return JXNetworkManager::sharedInstance().counters().outbox; }
  static bool deliverAll() { return JXNetworkManager::sharedInstance().flush(20s); }

  JXTestServer server;
  std::shared_ptr<Reported> reported = std::make_shared<Reported>();
};

constexpr const char* kIgnored = "execute() called in a forked child process; ignored\n";

TEST_F(ServerSideFork, ChildStoresSendsAndReportsNothing) {
  const auto serverSide = make();
  for (int i = 0; i < 5; ++i)
    executeNamed(*serverSide, "before");
  EXPECT_EQ(0, statusOfForkedChild([&] {
              for (int i = 0; i < 5; ++i)
                executeNamed(*serverSide, "child");
              return JXNetworkManager::sharedInstance().flush(1ms) ? 1 : 0;
            }));
  EXPECT_EQ(kIgnored, reported->fromChildren.readAll());
  for (int i = 0; i < 5; ++i)
    executeNamed(*serverSide, "parent");
  ASSERT_TRUE(deliverAll());
  const std::vector<std::string> expected{"before", "before", "before", "before", "before",
                                          "parent", "parent", "parent", "parent", "parent"};
  EXPECT_EQ(expected, received());
  EXPECT_EQ(10u, outbox().added);
  EXPECT_EQ(10u, outbox().delivered);
  EXPECT_EQ(0u, outbox().storageErrors);
  EXPECT_EQ(10, reported->delivered);
}

TEST_F(ServerSideFork, ChildThatExitsWritesAndWaitsForNothing) {
  static const pid_t parent = ::getpid();
  // Registered before the library's handler, so it runs after it.
  std::atexit([] {
    if (::getpid() != parent) ::_exit(42);
  });
  const auto serverSide = make();
  executeNamed(*serverSide, "parent");
  EXPECT_EQ(42, statusOfForkedChild([&]() -> int {
              executeNamed(*serverSide, "child");
              std::exit(1);  // NOLINT(concurrency-mt-unsafe): the only thread
            }));
  EXPECT_EQ(kIgnored, reported->fromChildren.readAll());
  ASSERT_TRUE(deliverAll());
  EXPECT_EQ(std::vector<std::string>{"parent"}, received());
}

TEST_F(ServerSideFork, EveryOperationReturnsInTheChild) {
  const auto serverSide = make();
  serverSide->addPermanentData_withValue("key", "value");
  EXPECT_EQ(0, statusOfForkedChild([&] {
              const auto created = ServerSide::initWithSiteID_andSourceKey(1, "key");
              executeNamed(*created, "child");
              serverSide->addPermanentData_withValue("key", "other");
              serverSide->disableServerSide();
              serverSide->enableServerSide();
              serverSide->waitForUserAgent();
              serverSide->enableRunningInBackground();
              serverSide->addAdvertisingIDs();
              serverSide->changeNotificationCenter(nullptr);
              serverSide->setUrl("https://other.example.com");
              JXNetworkManager::sharedInstance().purge();
              JXNetworkManager::sharedInstance().setManagerState(2);
              JXApplication::applicationDidEnterBackground();
              JXUser::sharedInstance().setAnonymous_id("child");
              JXNetwork::sharedInstance().refresh();
              JXState::sharedInstance().changeNotificationCenter(nullptr);
              JXPredefinedVariables::sharedInstance().computeTimeChangingVariables();
              const bool isErased = JXStoredData::eraseAll().isComplete;
              return !isErased && !serverSide->url().isPresent() &&
                             !serverSide->getPermanentData("key").isPresent() &&
                             !JXUser::sharedInstance().anonymous_id().isPresent() &&
                             JXNetworkManager::sharedInstance().counters().outbox.added == 0
                         ? 0
                         : 1;
            }));
  EXPECT_EQ("ServerSide init called in a forked child process; ignored\n",
            reported->fromChildren.readAll());
  EXPECT_NE(JXString("child"), JXUser::sharedInstance().anonymous_id());
  executeNamed(*serverSide, "parent");
  ASSERT_TRUE(deliverAll());
  EXPECT_EQ(std::vector<std::string>{"parent"}, received());
  EXPECT_THAT(server.bodies().front(), ::testing::HasSubstr(R"("key": "value")"));
}

// A clock that another thread waits in, with the session locked.
class BlockingClock final : public JXClock {
 public:
  std::int64_t nowMs() const override {
    if (blocks.exchange(false)) {
      begun.write("begun");
      end.readLine();
    }
    return 1'700'000'000'000;
  }
  mutable std::atomic<bool> blocks{false};
  LinePipe begun, end;
};

TEST_F(ServerSideFork, ChildDoesNotWaitForASessionThatAThreadOfTheParentHasLocked) {
  const auto blocking = std::make_shared<BlockingClock>();
  configuration.clock = blocking;
  const auto serverSide = make();
  blocking->blocks = true;
  std::thread executing([&] { executeNamed(*serverSide, "parent"); });
  EXPECT_EQ("begun", blocking->begun.readLine());
  EXPECT_EQ(0, statusOfForkedChild([&] {
              executeNamed(*serverSide, "child");
              static_cast<void>(JXPredefinedVariables::sharedInstance().getData("any"));
              static_cast<void>(JXDevice::sharedInstance().getJsonObject());
              return 0;
            }));
  blocking->end.write("end");
  executing.join();
  ASSERT_TRUE(deliverAll());
  EXPECT_EQ(std::vector<std::string>{"parent"}, received());
}

TEST_F(ServerSideFork, LosesNothingWhileAThreadForksAndOthersExecute) {
  constexpr int kThreads = 3;
  constexpr int kForks = 200;
  // With the address sanitizer, a child must not allocate memory while other threads may do so.
  configuration.logLevel = 2;
  // On a busy machine, the forks take so long that more events are executed than delivered.
  configuration.outboxBounds.maxRequests = 1'000'000;
  configuration.outboxBounds.maxBytes = 1024 * 1024 * 1024;
  const auto serverSide = make();
  JXNotificationCenter::defaultCenter()->removeObserver(this);  // the fixture uses one thread
  std::atomic<bool> ends{false};
  std::atomic<int> executed{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      while (!ends) {
        executeNamed(*serverSide, "parent");
        ++executed;
        serverSide->addPermanentData_withValue("key", executed.load());
        std::this_thread::sleep_for(1ms);
      }
    });
  }
  const auto ofChild = JXCustomEvent::initWithName("child");
  int failures = 0;
  for (int i = 0; i < kForks; ++i) {
    failures += statusOfForkedChild([&] {
                  serverSide->execute(ofChild);
                  static_cast<void>(JXPredefinedVariables::sharedInstance().getData(
                      kJXPredefinedVariable_NumberVisits));
                  static_cast<void>(JXUser::sharedInstance().anonymous_id());
                  static_cast<void>(serverSide->getPermanentData("key"));
                  serverSide->disableServerSide();
                  return 0;
                }) != 0;
  }
  ends = true;
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(0, failures);
  ASSERT_TRUE(deliverAll());
  EXPECT_EQ(std::vector<std::string>(static_cast<std::size_t>(executed.load()), "parent"),
            received());
  EXPECT_EQ(executed, reported->delivered);
  const std::string log = reported->fromChildren.readAll();
  EXPECT_EQ("", reported->fromChildren.readAll());
}

TEST_F(ServerSideFork, SpawnedProgramsInheritNothingAndDisturbNothing) {
  const auto serverSide = make();
  int failures = 0;
  for (int i = 0; i < 20; ++i) {
    executeNamed(*serverSide, "parent");
    // Fails when a file of the storage folder is open in the program.
    const std::string command = "! ls -l /proc/self/fd | grep -q " + storage().path();
    const char* const arguments[] = {"sh", "-c", command.c_str(), nullptr};
    pid_t child = 0;
    ASSERT_EQ(0, ::posix_spawn(&child, "/bin/sh", nullptr, nullptr,
                               const_cast<char* const*>(arguments), environ));
    int status = 0;
    ::waitpid(child, &status, 0);
    failures += status != 0;
    failures += statusOfForkedChild(
                    [&] { return ::execv("/bin/sh", const_cast<char* const*>(arguments)); }) != 0;
  }
  EXPECT_EQ(0, failures);
  EXPECT_FALSE(JXForkedChild::isCurrent());
  ASSERT_TRUE(deliverAll());
  EXPECT_EQ(std::vector<std::string>(20, "parent"), received());
}

// Its processes are forked before the library or a server has started.
class ForkedLaunch : public ServerSideFixture {
 protected:
  ForkedLaunch() {
    queueForReal();
    platform->hasUserDefaults = false;
  }
};

TEST_F(ForkedLaunch, AdoptsEventsOfAKilledProcessWhoseChildSleeps) {
  const LinePipe pids;
  const pid_t killed = ::fork();
  if (killed == 0) {
    const auto serverSide = make();
    for (int i = 0; i < 3; ++i)
      serverSide->execute(JXCustomEvent::initWithName("earlier"));
    const auto ofChild = JXCustomEvent::initWithName("child");
    const pid_t sleeping = ::fork();
    if (sleeping == 0) {
      serverSide->execute(ofChild);
      pids.write(std::to_string(::getpid()));
      ::alarm(60);
    }
    ::pause();
  }
  const pid_t sleeping = std::stoi(pids.readLine());
  ::kill(killed, SIGKILL);
  ::waitpid(killed, nullptr, 0);
  const auto serverSide = make();
  EXPECT_EQ(3u, JXNetworkManager::sharedInstance().counters().outbox.queued);
  EXPECT_EQ(0, ::kill(sleeping, SIGKILL)) << "the child ended too early";
}

}  // namespace
}  // namespace jx::test
