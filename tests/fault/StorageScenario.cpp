// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/StorageScenario.h"

#include <fcntl.h>
#include <stdio.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/events/JXCustomEvent.h"
#include "tests/fault/FaultTable.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

Texts sorted(Texts texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

}  // namespace

StorageScenario::StorageScenario() {
  platform->hasUserDefaults = false;
  configuration.storageFolder = storage().makeFolder("state");
  configuration.collectionHost = server.url("");
  configuration.caFile = server.caFile();
  configuration.proxy = "";
  configuration.dryRun = false;
  configuration.retryTimings.initialBackoff = 1ms;
  configuration.retryTimings.maxBackoff = 10ms;
  configuration.retryTimings.syncDelay = 1ms;
  configuration.logLevel = 3;
  server.refuse();
}

void StorageScenario::executeMany(ServerSide& serverSide, std::size_t count) {
  const std::size_t before = requests().size();
  for (std::size_t i = 0; i < count; ++i)
    serverSide.execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(requests().size(), before + count);
}

bool StorageScenario::waitUntilOnDisk() const {
  const auto deadline = std::chrono::steady_clock::now() + 20s;
  while (counters().outbox.inMemory != 0) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::yield();
  }
  return true;
}

Texts StorageScenario::onDisk() const {
  std::string error;
  Texts bodies;
  for (const JXOutboxListing& listing : listOutbox(state() + "/outbox", error))
    bodies.push_back(listing.body);
  return sorted(bodies);
}

Texts StorageScenario::executed(std::size_t from, std::uint64_t dropped) const {
  Texts bodies;
  for (std::size_t i = 0; i < requests().size(); ++i) {
    if (i < from || i >= from + dropped) bodies.push_back(requests()[i].text);
  }
  return sorted(bodies);
}

void StorageScenario::removeState() const {
  const std::string moved = storage().path("removed");
  std::filesystem::rename(state(), moved);
  std::filesystem::remove_all(moved);
}

void StorageScenario::replaceStateByAFile() const {
  const std::string moved = storage().write("removed", "a file");
  ASSERT_EQ(::renameat2(AT_FDCWD, moved.c_str(), AT_FDCWD, state().c_str(), RENAME_EXCHANGE), 0);
  std::filesystem::remove_all(moved);
}

void StorageScenario::expectEachDeliveredOnce(Texts bodies) {
  server.accept();
  EXPECT_TRUE(JXNetworkManager::sharedInstance().flush(20s));
  // Printing complete bodies would make a failure unreadable.
  EXPECT_EQ(server.requests().size(), bodies.size());
  EXPECT_TRUE(sorted(server.bodies()) == sorted(std::move(bodies)));
  EXPECT_EQ(counters().outbox.delivered, server.requests().size());
  EXPECT_EQ(counters().outbox.rejected, 0u);
}

Texts StorageScenario::storageLines() const {
  Texts found;
  for (const LogLine& line : linesUpTo(3)) {
    if (line.message.find(state()) == std::string::npos) continue;
    found.push_back(std::to_string(line.level) + " " + line.message);
  }
  return found;
}

void StorageScenario::writeRow(const std::string& order, const std::string& fault,
                               const std::string& did, const std::string& library,
                               std::uint64_t queued) const {
  writeFaultRow({order, fault, did, library, counters().outbox.delivered, queued,
                 counters().outbox.rejected, droppedOf(counters().outbox)});
}

}  // namespace jx::test
