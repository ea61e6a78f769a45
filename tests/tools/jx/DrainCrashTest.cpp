// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Interrupts a drain at each call that changes a file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/support/ForkedChild.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/jx/FileCallFault.h"
#include "tools/jx/gateway/DrainFolder.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::FileCallFault;

// The event IDs of the stream. "b" and "d" are repeated; "" is an event without an ID.
const std::vector<std::string> kStream{"a", "b", "", "b", "c", "d", "e", "", "f", "d", "g", "h"};
const std::string kWritten = "a b null c d e null f g h ";
constexpr std::size_t kBatch = 2;

std::vector<std::string> bodiesOfStream() {
  std::vector<std::string> bodies;
  for (const std::string& id : kStream)
    bodies.push_back(id.empty() ? "{}" : R"({"context":{"event_id":")" + id + "\"}}");
  return bodies;
}

// Returns the batch that the broker sends after a position.
std::vector<StreamMessage> batchAfter(std::int64_t sequence,
                                      const std::vector<std::string>& bodies) {
  std::vector<StreamMessage> batch;
  for (std::size_t i = static_cast<std::size_t>(sequence);
       i < bodies.size() && batch.size() < kBatch; ++i) {
    batch.push_back({static_cast<std::int64_t>(i + 1), 1'000, "events.1.x", bodies[i], {}});
  }
  return batch;
}

// Drains the stream and finishes the last file. Repeats what fails. Returns 0 at the end, and 1 if
// the folder cannot be opened.
int drain(const fs::path& path) {
  DrainLimits limits;
  limits.fileBytes = 300;
  auto folder = DrainFolder::open(path, "EVENTS", limits, [] { return 0; });
  if (!folder) return 1;
  (*folder)->useStream(1);
  const std::vector<std::string> bodies = bodiesOfStream();
  for (;;) {
    const auto batch = batchAfter((*folder)->position().sequence, bodies);
    if (batch.empty()) break;
    (void)(*folder)->append(batch);
    (void)(*folder)->rotateWhenDue();
  }
  while (!(*folder)->finishFile()) {
  }
  return 0;
}

// Returns the IDs in the finished files, in order, or the name of a file that is not finished.
std::string idsIn(const fs::path& path) {
  std::map<std::int64_t, std::string> ids;
  std::string twice;
  for (const auto& entry : fs::directory_iterator(path)) {
    const std::string name = entry.path().filename();
    if (name.rfind("events-", 0) != 0) continue;
    if (entry.path().extension() != ".ndjson") return name;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      const std::size_t id = line.find("\"event_id\":") + 11;
      std::string text = line.substr(id, line.find(',', id) - id);
      text.erase(std::remove(text.begin(), text.end(), '"'), text.end());
      const std::int64_t sequence = std::stoll(line.substr(line.find(':') + 1));
      if (!ids.emplace(sequence, text).second) twice += line;
    }
  }
  std::string all = twice;
  for (const auto& [sequence, id] : ids)
    all += id + " ";
  return all;
}

TEST(DrainCrash, WritesEachEventOnceWhenKilledAtAnyFileCall) {
  int calls = 0;
  for (bool isKilled = true; isKilled; ++calls) {
    const test::TemporaryFolder folder;
    const fs::path path = folder.path("out");
    const auto killedAt = [&path](int call) {
      return test::statusOfForkedChild([&path, call] {
        test::injectFileCallFault(FileCallFault::Kill, call);
        return drain(path);
      });
    };
    const int status = killedAt(calls + 1);
    isKilled = status == 128 + SIGKILL;
    ASSERT_TRUE(isKilled || status == 0) << status;
    (void)killedAt(calls % 23 + 1);  // also while it recovers
    ASSERT_EQ(drain(path), 0) << "killed at call " << calls + 1;
    ASSERT_EQ(idsIn(path), kWritten) << "killed at call " << calls + 1;
  }
  EXPECT_GT(calls, 100);
}

TEST(DrainCrash, WritesEachEventOnceWhenAnyFileCallFails) {
  int calls = 0;
  for (bool isFailed = true; isFailed; ++calls) {
    const test::TemporaryFolder folder;
    const fs::path path = folder.path("out");
    test::injectFileCallFault(FileCallFault::Fail, calls + 1);
    while (drain(path) != 0) {
    }
    isFailed = test::isFileCallFaultOver();
    test::injectFileCallFault(FileCallFault::None, 0);
    ASSERT_EQ(idsIn(path), kWritten) << "failed at call " << calls + 1;
  }
  EXPECT_GT(calls, 100);
}

// What SQLite wrote before a commit failed may be valid at the next start.
TEST(DrainCrash, WritesEachEventOnceWhenAFileCallFailsAndThenItIsKilled) {
  for (const int distance : {1, 2, 3, 5}) {
    int calls = 0;
    for (bool isKilled = true; isKilled; ++calls) {
      const test::TemporaryFolder folder;
      const fs::path path = folder.path("out");
      const int status = test::statusOfForkedChild([&path, calls, distance] {
        test::injectFileCallFault(FileCallFault::FailThenKill, calls + 1, distance);
        return drain(path);
      });
      isKilled = status == 128 + SIGKILL || status == 1;
      ASSERT_EQ(drain(path), 0) << "failed at call " << calls + 1 << ", killed " << distance
                                << " calls later";
      ASSERT_EQ(idsIn(path), kWritten)
          << "failed at call " << calls + 1 << ", killed " << distance << " calls later";
    }
    EXPECT_GT(calls, 100);
  }
}

}  // namespace
}  // namespace jx
