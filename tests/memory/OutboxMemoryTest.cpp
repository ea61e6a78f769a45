// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/memory/FailingMemory.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

using test::Failing;
using test::FailingMemory;

constexpr const char* kId = "11111111-2222-3333-4444-555555555555";
// No operation of these tests allocates so often.
constexpr std::size_t kMostAllocations = 5'000;

class OutboxMemory : public OutboxTest, public ::testing::WithParamInterface<Failing> {
 protected:
  static Bodies idsOfDrops(JXOutbox& outbox, JXDropReason reason) {
    Bodies ids;
    for (const JXOutboxDrop& drop : outbox.takeDropped()) {
      if (drop.reason == reason) ids.push_back(drop.eventId.toStdString());
    }
    return ids;
  }

  // Calls `run` with a number of allocations that succeed, from 0 on, until it returns false: no
  // allocation has failed. Returns how often one has.
  template <typename Run>
  static std::size_t forEachAllocation(Run run) {
    std::size_t succeeding = 0;
    while (succeeding < kMostAllocations && run(succeeding) && !HasFatalFailure())
      ++succeeding;
    EXPECT_LT(succeeding, kMostAllocations);
    return succeeding;
  }

  std::unique_ptr<JXOutbox> openIn(const std::string& name, const JXOutboxBounds& bounds = {}) {
    auto outbox = std::make_unique<JXOutbox>(folder_.file(name), bounds, clock_);
    outbox->rememberDropped();
    return outbox;
  }
};

INSTANTIATE_TEST_SUITE_P(Failing, OutboxMemory,
                         ::testing::Values(Failing::OnlyOne, Failing::AllLater));

TEST_P(OutboxMemory, AddsOrDropsAnEventAtEachFailingAllocation) {
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    const std::string name = std::to_string(succeeding);
    const std::string body = event(kId);
    auto outbox = openIn(name);
    bool hasFailed = false;
    std::optional<std::uint64_t> id;
    {
      const FailingMemory memory(succeeding, GetParam());
      id = outbox->add(kTestUrl, body);
      hasFailed = memory.hasFailed();
    }
    EXPECT_NE(add(*outbox, event("after")), 0u);
    EXPECT_EQ(idsOfDrops(*outbox, JXDropReason::OutOfMemory), id ? Bodies{} : Bodies{kId});
    EXPECT_EQ(outbox->counters().droppedOutOfMemory, id ? 0u : 1u);
    EXPECT_EQ(outbox->counters().added, id ? 2u : 1u);
    const Bodies expected = id ? Bodies{body, event("after")} : Bodies{event("after")};
    EXPECT_EQ(takeAll(*outbox), expected);
    outbox.reset();
    outbox = openIn(name);  // the next process
    EXPECT_EQ(takeAll(*outbox), expected) << succeeding;
    return hasFailed;
  });
  EXPECT_GE(failures, 5u);
}

TEST_P(OutboxMemory, KeepsTheQueueWithinItsLimitsAtEachFailingAllocation) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 2;
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    const std::string name = std::to_string(succeeding);
    const std::string body = event(kId);
    auto outbox = openIn(name, bounds);
    add(*outbox, event("a"));
    add(*outbox, event("b"));
    bool hasFailed = false;
    std::optional<std::uint64_t> id;
    {
      const FailingMemory memory(succeeding, GetParam());
      id = outbox->add(kTestUrl, body);
      hasFailed = memory.hasFailed();
    }
    EXPECT_EQ(outbox->counters().queued, 2u);
    Bodies dropped;
    for (const JXOutboxDrop& drop : outbox->takeDropped())
      dropped.push_back(drop.eventId.toStdString());
    EXPECT_EQ(dropped, id ? Bodies{"a"} : Bodies{kId});
    outbox->sync();
    outbox.reset();
    outbox = openIn(name, bounds);
    EXPECT_EQ(takeAll(*outbox),
              id ? (Bodies{event("b"), event(kId)}) : (Bodies{event("a"), event("b")}));
    return hasFailed;
  });
  EXPECT_GE(failures, 1u);
}

TEST_P(OutboxMemory, KeepsOrDropsAnEventWhileWritesFail) {
  JXOutboxBounds bounds;
  bounds.maxInMemory = 1;
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    auto outbox = openIn(std::to_string(succeeding), bounds);
    const std::string body = event(kId);
    bool hasFailed = false;
    std::optional<std::uint64_t> id;
    {
      const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
      add(*outbox, event("a"));
      const FailingMemory memory(succeeding, GetParam());
      id = outbox->add(kTestUrl, body);
      hasFailed = memory.hasFailed();
    }
    EXPECT_EQ(idsOfDrops(*outbox, id ? JXDropReason::NoStorage : JXDropReason::OutOfMemory),
              id ? Bodies{"a"} : Bodies{kId});
    EXPECT_EQ(takeAll(*outbox), id ? Bodies{event(kId)} : Bodies{event("a")});
    return hasFailed;
  });
  EXPECT_GE(failures, 5u);
}

TEST_P(OutboxMemory, AdoptsEachRequestAtEachFailingAllocation) {
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    const std::string name = std::to_string(succeeding);
    const std::string path = folder_.file(name);
    const std::string large(600'000, 'x');  // two of them fill a segment
    {
      const auto previous = openIn(name);
      for (const char* id : {"a", "b", "c"})
        add(*previous, event(id) + large);
    }
    std::unique_ptr<JXOutbox> outbox;
    bool hasFailed = false;
    {
      const FailingMemory memory(succeeding, GetParam());
      try {
        outbox = std::make_unique<JXOutbox>(path, JXOutboxBounds(), clock_);
      } catch (const std::bad_alloc&) {
        outbox = nullptr;
      }
      hasFailed = memory.hasFailed();
    }
    if (outbox == nullptr) outbox = openIn(name);
    if (outbox->needsSync()) outbox->sync();
    Bodies bodies = takeAll(*outbox);
    EXPECT_EQ(sorted(bodies), (Bodies{event("a") + large, event("b") + large, event("c") + large}))
        << succeeding;
    return hasFailed;
  });
  EXPECT_GE(failures, 20u);
}

TEST_P(OutboxMemory, TakesAndAcknowledgesEachRequestOnceAtEachFailingAllocation) {
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    const std::string name = std::to_string(succeeding);
    auto outbox = openIn(name);
    add(*outbox, event("delivered"));
    add(*outbox, event("rejected"));
    add(*outbox, event("failed"));
    bool hasFailed = false;
    {
      const FailingMemory memory(succeeding, GetParam());
      try {
        const auto delivered = outbox->take();
        if (delivered) {
          EXPECT_TRUE(outbox->markDelivered(delivered->id));
        }
        const auto rejected = outbox->take();
        if (rejected) outbox->moveToDeadLetters(rejected->id, 400);
        const auto failed = outbox->take();
        if (failed) outbox->requeueFailed(failed->id, {});
        outbox->sync();
      } catch (const std::bad_alloc&) {
        hasFailed = true;
      }
      hasFailed = hasFailed || memory.hasFailed();
    }
    // What could not be done is done now.
    const std::uint64_t delivered = outbox->counters().delivered;
    outbox->sync();
    while (const auto request = outbox->take()) {
      if (request->body == event("rejected")) {
        EXPECT_TRUE(outbox->moveToDeadLetters(request->id, 400));
      } else {
        EXPECT_TRUE(outbox->markDelivered(request->id));
      }
    }
    // The last one may wait for its retry.
    for (const auto& host : outbox->hosts()) {
      while (const auto request = outbox->take({host.id, JXOutboxPick::Order::Retry}))
        EXPECT_TRUE(outbox->markDelivered(request->id));
    }
    EXPECT_LE(delivered, 1u);
    EXPECT_EQ(outbox->counters().delivered, 2u) << succeeding;
    EXPECT_EQ(outbox->counters().rejected, 1u) << succeeding;
    EXPECT_EQ(outbox->counters().queued, 0u) << succeeding;
    outbox->sync();
    outbox.reset();
    outbox = openIn(name);
    EXPECT_EQ(takeAll(*outbox), Bodies{}) << succeeding;
    std::string error;
    EXPECT_EQ(listDeadLetters(folder_.file(name), error).size(), 1u) << succeeding;
    return hasFailed;
  });
  EXPECT_GE(failures, 10u);
}

TEST_P(OutboxMemory, WritesEachDeadLetterOnce) {
  const auto outbox = openIn("outbox");
  Bodies bodies;
  // Each allocation of a rejection fails for some of them.
  for (std::size_t i = 0; i < 250; ++i) {
    bodies.push_back(event(std::to_string(i)));
    add(*outbox, bodies.back());
    const auto request = outbox->take();
    ASSERT_TRUE(request);
    {
      const FailingMemory memory(i % 10, GetParam());
      EXPECT_TRUE(outbox->moveToDeadLetters(request->id, 400));
    }
    outbox->sync();
  }
  EXPECT_EQ(dead(), bodies);
}

TEST_P(OutboxMemory, PurgesAllRequestsAtEachFailingAllocation) {
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    const std::string name = std::to_string(succeeding);
    auto outbox = openIn(name);
    for (const char* id : {"a", "b"})
      add(*outbox, event(id));
    bool hasFailed = false;
    {
      const FailingMemory memory(succeeding, GetParam());
      outbox->purge();
      hasFailed = memory.hasFailed();
    }
    EXPECT_EQ(takeAll(*outbox), Bodies{});
    EXPECT_EQ(outbox->counters().purged, 2u);
    outbox->sync();
    EXPECT_EQ(sorted(idsOfDrops(*outbox, JXDropReason::Purged)), (Bodies{"a", "b"})) << succeeding;
    outbox.reset();
    outbox = openIn(name);
    EXPECT_EQ(takeAll(*outbox), Bodies{}) << succeeding;
    return hasFailed;
  });
  EXPECT_GE(failures, 3u);
}

TEST_P(OutboxMemory, MovesItsFilesToANewFolderAtEachFailingAllocation) {
  const std::size_t failures = forEachAllocation([&](std::size_t succeeding) {
    const std::string name = std::to_string(succeeding);
    auto outbox = openIn(name);
    add(*outbox, event("a"));
    EXPECT_EQ(std::rename(folder_.file(name).c_str(), folder_.file(name + "-moved").c_str()), 0);
    bool hasFailed = false;
    {
      const FailingMemory memory(succeeding, GetParam());
      outbox->sync();
      hasFailed = memory.hasFailed();
    }
    outbox->sync();
    EXPECT_EQ(outbox->counters().queued, 1u);
    outbox.reset();
    EXPECT_EQ(takeAll(*openIn(name)), Bodies{event("a")}) << succeeding;
    EXPECT_EQ(takeAll(*openIn(name + "-moved")), Bodies{}) << succeeding;
    return hasFailed;
  });
  EXPECT_GE(failures, 5u);
}

TEST_F(OutboxTest, LogsThatMemoryIsExhaustedOnceUntilItIsOver) {
  const auto outbox = open();
  add(*outbox, event("a"));
  const std::string message =
      "2 outbox " + box_ + ": cannot queue an event: out of memory; event dropped";
  const std::string body = event("b");
  // Some events need no memory.
  const auto fail = [&] {
    const std::uint64_t dropped = outbox->counters().droppedOutOfMemory;
    const FailingMemory memory(0, Failing::AllLater);
    for (int i = 0; i < 1'000 && outbox->counters().droppedOutOfMemory == dropped; ++i)
      outbox->add(kTestUrl, body);
  };
  for (int i = 0; i < 5; ++i)
    fail();
  outbox->sync();
  fail();
  EXPECT_EQ(outbox->counters().droppedOutOfMemory, 6u);
  add(*outbox, event("c"));
  EXPECT_EQ(log_.with(message), 1u);
  outbox->sync();
  outbox->sync();
  fail();
  add(*outbox, event("d"));
  EXPECT_EQ(log_.with(message), 2u);
}

TEST_F(OutboxTest, ReportsAsManyEventsAsReservedWhileMemoryIsExhausted) {
  const auto outbox = open();
  outbox->rememberDropped();
  {
    const FailingMemory memory(0, Failing::AllLater);
    for (int i = 0; i < 300; ++i)
      outbox->add(kTestUrl, R"({"context":{"event_id":"11111111-2222-3333-4444-555555555555"}})");
  }
  EXPECT_EQ(outbox->counters().droppedOutOfMemory, 300u);
  std::size_t reported = 0;
  while (outbox->hasDropped()) {
    for (const JXOutboxDrop& drop : outbox->takeDropped()) {
      ++reported;
      EXPECT_EQ(drop.eventId, JXString(kId));
      EXPECT_EQ(drop.reason, JXDropReason::OutOfMemory);
    }
  }
  // Some more fit into memory that was allocated before.
  EXPECT_GE(reported, 64u);
  EXPECT_LT(reported, 300u);
}

}  // namespace
}  // namespace jx
