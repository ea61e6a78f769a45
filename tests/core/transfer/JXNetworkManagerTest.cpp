// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXNetworkManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/support/JXTestServer.h"

namespace jx {
namespace {

using namespace std::chrono_literals;
using test::bodyOf;
using Texts = std::vector<std::string>;

// Created before the manager is started, so destroyed after its thread has ended.
test::JXCollected<int>& maintainedOfTheProcess() {
  static test::JXCollected<int> maintained;
  return maintained;
}

// The manager of the process; each test runs in its own process.
class NetworkManager : public ::testing::Test {
 protected:
  NetworkManager() {
    setup.outbox = std::make_shared<JXOutbox>(outboxFolder, JXOutboxBounds(),
                                              std::make_shared<JXSystemClock>());
    setup.clock = std::make_shared<JXSystemClock>();
    setup.caFile = server.caFile();
    setup.timings.syncDelay = 1ms;
    setup.maintain = [&runs = maintained] { runs.add(1); };
  }

  void enqueue(const std::string& eventId) { manager.enqueue(server.url(), bodyOf(eventId)); }
  bool isPausedWithoutAttempts() {
    const std::size_t before = maintained.all().size();
    manager.storageChanged();
    return maintained.waitFor(before + 1) && manager.counters().paused &&
           manager.counters().attempts == 0;
  }

  TemporaryFolder folder;
  const std::string outboxFolder = folder.file("outbox");
  test::JXTestServer server;
  test::JXCollected<int>& maintained = maintainedOfTheProcess();
  JXTransferSetup setup;
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
};

TEST_F(NetworkManager, IgnoresRequestsBeforeItsStart) {
  enqueue("ignored");
  manager.onBackground();
  manager.onForeground();
  manager.waitForUserAgent();
  manager.purge();
  manager.storageChanged();
  EXPECT_TRUE(manager.flush(0ms));
  EXPECT_EQ(0u, manager.counters().outbox.added);
  EXPECT_EQ(0u, setup.outbox->counters().queued);
}

TEST_F(NetworkManager, SendsByDefault) {
  manager.start(setup);
  enqueue("e");
  EXPECT_TRUE(manager.flush(20s));
  EXPECT_EQ(Texts{bodyOf("e")}, server.bodies());
  EXPECT_EQ(1u, manager.counters().outbox.delivered);
}

TEST_F(NetworkManager, IgnoresASecondStart) {
  manager.start(setup);
  JXTransferSetup second = setup;
  second.outbox = std::make_shared<JXOutbox>(folder.file("other"), JXOutboxBounds(),
                                             std::make_shared<JXSystemClock>());
  manager.start(second);
  enqueue("e");
  EXPECT_EQ(0u, second.outbox->counters().added);
}

TEST_F(NetworkManager, TreatsUnknownStatesAsZero) {
  for (const int state : {-1, 3, 2'147'483'647}) {
    manager.setManagerState(state);
    EXPECT_EQ(0, manager.managerState());
  }
  manager.setManagerState(1);
  EXPECT_EQ(1, manager.managerState());
  manager.setManagerState(2);
  EXPECT_EQ(2, manager.managerState());
}

TEST_F(NetworkManager, PausesWhenDisabledByDefaultUntilEnabled) {
  manager.start(setup);
  manager.setManagerState(2);
  manager.changingSDKBehaviour(false);
  enqueue("e");
  EXPECT_TRUE(isPausedWithoutAttempts());
  manager.changingSDKBehaviour(true);
  EXPECT_TRUE(manager.flush(20s));
  EXPECT_EQ(1u, server.requests().size());
}

TEST_F(NetworkManager, PausesForAStateSetBeforeTheStart) {
  setup.outbox->add(server.url(), bodyOf("old"));
  manager.setManagerState(2);
  manager.start(setup);
  EXPECT_TRUE(isPausedWithoutAttempts());
  EXPECT_EQ(0, server.connections());
  manager.changingSDKBehaviour(true);
  EXPECT_TRUE(manager.flush(20s));
}

TEST_F(NetworkManager, DoesNotSendOldRequestsBeforeTheStateIsSet) {
  setup.outbox->add(server.url(), bodyOf("old"));
  setup.outbox = nullptr;  // ends the process that added it
  setup.outbox =
      std::make_shared<JXOutbox>(outboxFolder, JXOutboxBounds(), std::make_shared<JXSystemClock>());
  manager.start(setup);
  manager.storageChanged();
  ASSERT_TRUE(maintained.waitFor(1));
  manager.setManagerState(2);
  EXPECT_TRUE(isPausedWithoutAttempts());
  EXPECT_EQ(0, server.connections());
  manager.changingSDKBehaviour(true);
  EXPECT_TRUE(manager.flush(20s));
}

TEST_F(NetworkManager, IgnoresStoppingWhenAlwaysEnabled) {
  manager.start(setup);
  manager.setManagerState(1);
  manager.changingSDKBehaviour(true);
  manager.changingSDKBehaviour(false);
  enqueue("e");
  EXPECT_TRUE(manager.flush(20s));
  EXPECT_FALSE(manager.counters().paused);
}

TEST_F(NetworkManager, PausesRequestsInTheBackground) {
  manager.start(setup);
  manager.onBackground();
  enqueue("e");
  EXPECT_TRUE(isPausedWithoutAttempts());
  manager.onForeground();
  EXPECT_TRUE(manager.flush(20s));
}

TEST_F(NetworkManager, SendsInTheBackgroundWhenEnabled) {
  manager.start(setup);
  manager.onBackground();
  manager.enableRunningInBackground();
  enqueue("e");
  EXPECT_TRUE(manager.flush(20s));
  manager.onForeground();
  manager.onBackground();
  enqueue("e");
  EXPECT_TRUE(manager.flush(20s));
}

TEST_F(NetworkManager, PausesRequestsUntilTheUserAgentIsKnown) {
  std::function<void()> known;
  setup.requestUserAgent = [&](std::function<void()> done) { known = std::move(done); };
  manager.start(setup);
  manager.waitForUserAgent();
  ASSERT_TRUE(known);
  enqueue("e");
  EXPECT_TRUE(isPausedWithoutAttempts());
  known();
  EXPECT_TRUE(manager.flush(20s));
}

TEST_F(NetworkManager, DoesNotPauseWhenTheUserAgentIsKnownImmediately) {
  setup.requestUserAgent = [](const std::function<void()>& known) { known(); };
  manager.start(setup);
  manager.waitForUserAgent();
  EXPECT_FALSE(manager.counters().paused);
}

TEST_F(NetworkManager, StartsAUserAgentWaitRequestedBeforeTheStart) {
  std::function<void()> known;
  setup.requestUserAgent = [&](std::function<void()> done) { known = std::move(done); };
  manager.waitForUserAgent();
  manager.start(setup);
  EXPECT_FALSE(known);
  EXPECT_TRUE(manager.counters().paused);
  manager.requestAwaitedUserAgent();
  ASSERT_TRUE(known);
  EXPECT_TRUE(manager.counters().paused);
  std::exchange(known, nullptr)();
  EXPECT_FALSE(manager.counters().paused);
  manager.requestAwaitedUserAgent();
  EXPECT_FALSE(known) << "requested once";
}

TEST_F(NetworkManager, DoesNotPauseWhenTheUserAgentRequestThrows) {
  setup.requestUserAgent = [](const std::function<void()>&) { throw std::runtime_error("none"); };
  manager.start(setup);
  manager.waitForUserAgent();
  EXPECT_FALSE(manager.counters().paused);
}

TEST_F(NetworkManager, PurgeEmptiesTheQueue) {
  manager.start(setup);
  manager.onBackground();
  enqueue("e");
  manager.purge();
  EXPECT_EQ(0u, manager.counters().outbox.queued);
  EXPECT_TRUE(manager.flush(0ms));
}

std::string lineFrom(int pipe) {
  std::string line;
  for (char byte = 0; read(pipe, &byte, 1) == 1 && byte != '\n';)
    line += byte;
  return line;
}

TEST(NetworkManagerAtExit, KeepsAHangingRequestWithoutDelayingTheExit) {
  const TemporaryFolder folder;
  int commands[2];
  ASSERT_EQ(0, pipe(commands));
  // Forked before the server creates threads, because a child of a multithreaded process could not
  // create its own.
  ChildProcess child([&](int) {
    JXTransferSetup setup;
    setup.clock = std::make_shared<JXSystemClock>();
    setup.outbox = std::make_shared<JXOutbox>(folder.file("outbox"), JXOutboxBounds(), setup.clock);
    setup.caFile = lineFrom(commands[0]);
    const std::string url = lineFrom(commands[0]);
    JXNetworkManager::sharedInstance().start(setup);
    JXNetworkManager::sharedInstance().enqueue(url, bodyOf("kept"));
    std::exit(lineFrom(commands[0]) == "exit" ? 3 : 4);
    return 0;
  });
  test::JXTestServer server;
  test::JXTestAnswer never;
  never.manner = test::JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(never);
  const std::string addresses = server.caFile() + "\n" + server.url() + "\n";
  ASSERT_EQ(static_cast<ssize_t>(addresses.size()),
            write(commands[1], addresses.data(), addresses.size()));
  ASSERT_TRUE(server.waitForRequests(1));
  ASSERT_EQ(5, write(commands[1], "exit\n", 5));
  // The request would hang for 30 seconds, longer than the time limit of this test.
  EXPECT_EQ(3, child.wait());
  close(commands[0]);
  close(commands[1]);
  std::string error;
  const std::vector<JXOutboxListing> queued = listOutbox(folder.file("outbox"), error);
  ASSERT_EQ(1u, queued.size()) << error;
  EXPECT_EQ(bodyOf("kept"), queued.front().body);
}

}  // namespace
}  // namespace jx
