// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <set>
#include <thread>
#include <utility>

#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXOutboxFixture.h"

namespace jx {
namespace {

class OutboxProcess : public OutboxTest {
 protected:
  using Child = std::unique_ptr<ChildProcess>;

  // Starts a process that adds requests until it is killed, and reports each after `add` returned.
  // It marks every third request as delivered immediately and reports this first.
  Child addingProcess(const std::string& name) {
    return std::make_unique<ChildProcess>([this, name](int pipe) {
      const auto outbox = open();
      takeAll(*outbox);
      for (int i = 0;; ++i) {
        const std::string body = name + std::to_string(i);
        const std::uint64_t id = add(*outbox, body);
        if (i % 3 == 2) {
          ChildProcess::writeLine(pipe, "-" + body);
          outbox->markDelivered(id);
        } else {
          ChildProcess::writeLine(pipe, "+" + body);
        }
        if (i % 50 == 49) outbox->sync();
      }
      return 0;
    });
  }

  // Starts a process that adds requests on one thread while another sends them, until it is killed.
  Child sendingProcess(const std::string& name) {
    return std::make_unique<ChildProcess>([this, name](int pipe) {
      // No dead letter is evicted, so none is missing for that reason.
      JXOutboxBounds bounds;
      bounds.maxDeadLetters = 1'000'000;
      const auto outbox = open(bounds);
      std::thread transfer([&] { sendForever(*outbox, pipe); });
      for (int i = 0;; ++i) {
        // Limits the lead of this thread over the other.
        while (outbox->counters().queued > 100)
          std::this_thread::yield();
        const std::string body = name + std::to_string(i);
        add(*outbox, body);
        ChildProcess::writeLine(pipe, "+" + body);
      }
      return 0;
    });
  }

  // Keeps four requests in flight. Of every three requests one is delivered and reported first, one
  // is rejected and one is requeued.
  static void sendForever(JXOutbox& outbox, int pipe) {
    std::deque<JXOutboxRequest> inFlight;
    for (int i = 0;; ++i) {
      while (inFlight.size() < 4) {
        if (auto request = outbox.take()) inFlight.push_back(std::move(*request));
      }
      const JXOutboxRequest request = std::move(inFlight.front());
      inFlight.pop_front();
      if (i % 3 == 0) {
        ChildProcess::writeLine(pipe, "-" + request.body);
        outbox.markDelivered(request.id);
      } else if (i % 3 == 1) {
        outbox.moveToDeadLetters(request.id, 400);
      } else {
        outbox.requeue(request.id);
      }
      if (i % 50 == 49) outbox.sync();
    }
  }

  // Starts a process that delivers and reports all available requests, then exits.
  Child deliveringProcess() {
    return std::make_unique<ChildProcess>([this](int pipe) {
      const auto outbox = open();
      while (const auto request = outbox->take()) {
        outbox->markDelivered(request->id);
        ChildProcess::writeLine(pipe, request->body);
      }
      return 0;
    });
  }
};

TEST_F(OutboxProcess, KillLosesNoAcceptedRequest) {
  std::set<std::string> accepted;
  std::set<std::string> maybeAcknowledged;
  for (int round = 0; round < 25; ++round) {
    const Child child = addingProcess("r" + std::to_string(round) + "-");
    const auto record = [&](const std::string& line) {
      (line[0] == '+' ? accepted : maybeAcknowledged).insert(line.substr(1));
    };
    for (int lines = 0; lines < 5 + round * 13; ++lines)
      record(child->readLine());
    child->kill();
    for (std::string line = child->readLine(); !line.empty(); line = child->readLine())
      record(line);

    const Bodies left = listed();
    const std::set<std::string> held(left.begin(), left.end());
    ASSERT_EQ(held.size(), left.size());
    EXPECT_TRUE(std::includes(held.begin(), held.end(), accepted.begin(), accepted.end()));
    // In addition at most one request per round, the one being added at the kill.
    EXPECT_LE(held.size(), accepted.size() + static_cast<std::size_t>(round) + 1);
  }
  EXPECT_GT(accepted.size(), 2'000u);
  const Bodies left = listed();
  EXPECT_EQ(takeAll(*open()), left);
}

TEST_F(OutboxProcess, KillDuringDeliveryLosesNoAcceptedRequest) {
  std::set<std::string> expected;
  std::set<std::string> maybeDelivered;
  for (int round = 0; round < 40; ++round) {
    const Child child = sendingProcess("r" + std::to_string(round) + "-");
    const auto record = [&](const std::string& line) {
      (line[0] == '+' ? expected : maybeDelivered).insert(line.substr(1));
    };
    for (int lines = 0; lines < 5 + round * 10; ++lines)
      record(child->readLine());
    child->kill();
    for (std::string line = child->readLine(); !line.empty(); line = child->readLine())
      record(line);
  }
  for (const std::string& body : maybeDelivered)
    expected.erase(body);
  const Bodies left = listed();
  const Bodies letters = dead();
  std::set<std::string> held(left.begin(), left.end());
  EXPECT_EQ(held.size(), left.size());
  held.insert(letters.begin(), letters.end());
  EXPECT_TRUE(std::includes(held.begin(), held.end(), expected.begin(), expected.end()));
  EXPECT_GT(expected.size(), 500u);
  EXPECT_GT(maybeDelivered.size(), 500u);
  EXPECT_GT(letters.size(), 100u);
}

TEST_F(OutboxProcess, EachRequestIsTakenByOneProcessOnly) {
  std::set<std::string> expected;
  {
    // Creates segments as several processes that have ended would leave them.
    std::vector<std::unique_ptr<JXOutbox>> boxes;
    for (int box = 0; box < 6; ++box) {
      boxes.push_back(open());
      for (int i = 0; i < 40; ++i) {
        const std::string body = std::to_string(box) + "/" + std::to_string(i);
        add(*boxes.back(), body);
        expected.insert(body);
      }
    }
  }
  Bodies delivered;
  for (int wave = 0; wave < 2; ++wave) {
    std::vector<Child> children;
    for (int i = 0; i < 4; ++i)
      children.push_back(deliveringProcess());
    for (const Child& child : children) {
      for (std::string line = child->readLine(); !line.empty(); line = child->readLine()) {
        delivered.push_back(line);
      }
      EXPECT_EQ(child->wait(), 0);
    }
  }
  EXPECT_EQ(sorted(delivered), Bodies(expected.begin(), expected.end()));
  EXPECT_TRUE(listed().empty());
}

TEST_F(OutboxProcess, AdoptsRequestsOfAKilledProcessWhileOthersRun) {
  const auto running = open();
  add(*running, "running");
  ChildProcess child([this](int pipe) {
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
    outbox->markDelivered(outbox->take()->id);
    ChildProcess::writeLine(pipe, "ready");
    ::pause();
    return 0;
  });
  EXPECT_EQ(child.readLine(), "ready");
  EXPECT_TRUE(takeAll(*open()).empty());
  child.kill();
  EXPECT_EQ(takeAll(*open()), Bodies{"b"});
  EXPECT_EQ(takeAll(*running), Bodies{"running"});
}

TEST_F(OutboxProcess, ListsRequestsWhileAnotherProcessAddsThem) {
  const Child child = addingProcess("x");
  for (int i = 0; i < 100; ++i)
    child->readLine();
  for (int i = 0; i < 20; ++i)
    EXPECT_GE(listed().size(), 66u);
  EXPECT_TRUE(dead().empty());
}

TEST_F(OutboxProcess, TwoProcessesShareOneDeadLetterFile) {
  std::vector<Child> children;
  for (int each = 0; each < 2; ++each) {
    children.push_back(std::make_unique<ChildProcess>([this, each](int) {
      JXOutboxBounds bounds;
      bounds.maxDeadLetters = 20;
      const auto outbox = open(bounds);
      for (int i = 0; i < 200; ++i) {
        outbox->moveToDeadLetters(add(*outbox, std::to_string(each) + "/" + std::to_string(i)),
                                  400);
      }
      // Retries dead letters that could not be written while the other process held the lock.
      for (int i = 0; i < 1'000 && outbox->needsSync(); ++i)
        outbox->sync();
      return outbox->counters().storageErrors == 0 ? 0 : 1;
    }));
  }
  for (const Child& child : children)
    EXPECT_EQ(child->wait(), 0);
  const Bodies letters = dead();
  EXPECT_EQ(letters.size(), 20u);
  EXPECT_EQ(std::set<std::string>(letters.begin(), letters.end()).size(), 20u);
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 0u);
  EXPECT_TRUE(letters.back() == "0/199" || letters.back() == "1/199");
}

}  // namespace
}  // namespace jx
