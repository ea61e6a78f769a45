// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutbox.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <set>
#include <thread>

#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

class Outbox : public OutboxTest {};

TEST_F(Outbox, ReturnsARequestUnchanged) {
  const auto outbox = open();
  const std::string body("{\"a\":\"\0\xFF\n\"}", 11);
  const std::uint64_t id = outbox->add("https://collect.example/?a=b", body).value();
  const JXOutboxRequest request = outbox->take().value();
  EXPECT_EQ(request.id, id);
  EXPECT_EQ(request.url, "https://collect.example/?a=b");
  EXPECT_EQ(request.body, body);
  EXPECT_EQ(request.createdMs, kTestNowMs);
}

TEST_F(Outbox, AcceptsAnEmptyUrlAndBody) {
  { open()->add("", ""); }
  const JXOutboxRequest request = open()->take().value();
  EXPECT_EQ(request.url, "");
  EXPECT_EQ(request.body, "");
}

TEST_F(Outbox, CreatesFilesAndFolderForTheirOwnerOnly) {
  const auto outbox = open();
  add(*outbox, "a");
  outbox->moveToDeadLetters(outbox->take()->id, 400);
  struct stat status {};
  ASSERT_EQ(::stat(box_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0700u);
  for (const auto& entry : std::filesystem::directory_iterator(box_)) {
    ASSERT_EQ(::stat(entry.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u) << entry.path();
  }
}

TEST_F(Outbox, AddsARequestWithOneWrite) {
  const auto outbox = open();
  add(*outbox, "first, which creates the file");
  const FailingDisk disk(0, 0, FailingDisk::Write::Nothing);
  add(*outbox, "second");
  EXPECT_EQ(disk.calls(), 1);
}

TEST_F(Outbox, TakesTheOldestRequestFirstAndOnlyOnce) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c"})
    add(*outbox, body);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "c"}));
  EXPECT_FALSE(outbox->take().has_value());
  EXPECT_EQ(outbox->counters().queued, 3u);
}

TEST_F(Outbox, RequeuedRequestKeepsItsPosition) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c", "d"})
    add(*outbox, body);
  const std::uint64_t a = outbox->take()->id;
  const std::uint64_t b = outbox->take()->id;
  EXPECT_EQ(outbox->take()->body, "c");
  outbox->requeue(b);
  outbox->requeue(a);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "d"}));
}

TEST_F(Outbox, RequeueIgnoresRequestsThatAreNotInFlight) {
  const auto outbox = open();
  const std::uint64_t a = add(*outbox, "a");
  outbox->requeue(a);
  outbox->requeue(a + 100);
  EXPECT_EQ(takeAll(*outbox), Bodies{"a"});
}

TEST_F(Outbox, RemovesADeliveredRequestPermanently) {
  {
    const auto outbox = open();
    for (const char* body : {"a", "b", "c"})
      add(*outbox, body);
    outbox->take();
    outbox->markDelivered(outbox->take()->id);
    EXPECT_EQ(listed(), (Bodies{"a", "c"}));
    EXPECT_EQ(outbox->counters().delivered, 1u);
    EXPECT_EQ(outbox->counters().queued, 2u);
  }
  EXPECT_EQ(takeAll(*open()), (Bodies{"a", "c"}));
}

TEST_F(Outbox, IgnoresAnIdThatIsNoLongerQueued) {
  const auto outbox = open();
  const std::uint64_t a = add(*outbox, "a");
  add(*outbox, "b");
  outbox->markDelivered(a);
  outbox->markDelivered(a);
  outbox->moveToDeadLetters(a, 400);
  outbox->requeue(a);
  EXPECT_EQ(outbox->counters().delivered, 1u);
  EXPECT_EQ(outbox->counters().rejected, 0u);
  EXPECT_EQ(takeAll(*outbox), Bodies{"b"});
}

TEST_F(Outbox, CountersReportQueuedRequestsAndBytes) {
  const auto outbox = open();
  outbox->add("12345", "678");
  outbox->add("12345", "");
  const JXOutboxCounters counters = outbox->counters();
  EXPECT_EQ(counters.added, 2u);
  EXPECT_EQ(counters.queued, 2u);
  EXPECT_EQ(counters.queuedBytes, 13u);
  EXPECT_EQ(counters.inMemory, 0u);
  EXPECT_EQ(counters.storageErrors, 0u);
}

TEST_F(Outbox, NeedsSyncOnlyAfterAChange) {
  const auto outbox = open();
  EXPECT_FALSE(outbox->needsSync());
  EXPECT_TRUE(open()->needsSync()) << "a killed process may have left changes";
  const std::uint64_t a = add(*outbox, "a");
  EXPECT_TRUE(outbox->needsSync());
  outbox->sync();
  EXPECT_FALSE(outbox->needsSync());
  outbox->markDelivered(a);
  EXPECT_TRUE(outbox->needsSync());
  outbox->sync();
  EXPECT_FALSE(outbox->needsSync());
}

TEST_F(Outbox, KeepsTheRightRequestsAfterManyDeliveries) {
  const auto outbox = open();
  std::vector<std::uint64_t> ids;
  for (int i = 0; i < 5'000; ++i)
    ids.push_back(add(*outbox, std::to_string(i)));
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (i % 1'000 != 7) outbox->markDelivered(ids[i]);
  }
  EXPECT_EQ(outbox->counters().queued, 5u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"7", "1007", "2007", "3007", "4007"}));
  EXPECT_EQ(listed(), (Bodies{"7", "1007", "2007", "3007", "4007"}));
}

TEST_F(Outbox, PurgeDeletesQueuedInFlightAndDeadLetters) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c"})
    add(*outbox, body);
  outbox->moveToDeadLetters(outbox->take()->id, 400);
  const std::uint64_t b = outbox->take()->id;
  outbox->purge();
  EXPECT_EQ(outbox->counters().purged, 2u);
  EXPECT_EQ(outbox->counters().queued, 0u);
  EXPECT_EQ(outbox->counters().queuedBytes, 0u);
  outbox->markDelivered(b);
  EXPECT_EQ(outbox->counters().delivered, 0u);
  EXPECT_FALSE(outbox->take().has_value());
  EXPECT_TRUE(listed().empty());
  EXPECT_TRUE(dead().empty());
  EXPECT_EQ(files(), 0u);
  add(*outbox, "after");
  EXPECT_EQ(listed(), Bodies{"after"});
}

TEST_F(Outbox, MovesARejectedRequestToTheDeadLettersWithItsStatus) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
    outbox->moveToDeadLetters(outbox->take()->id, 413);
    EXPECT_EQ(outbox->counters().rejected, 1u);
    EXPECT_EQ(outbox->counters().queued, 1u);
  }
  std::string error;
  const std::vector<JXOutboxListing> letters = listDeadLetters(box_, error);
  ASSERT_EQ(letters.size(), 1u);
  EXPECT_EQ(letters[0].body, "a");
  EXPECT_EQ(letters[0].url, kTestUrl);
  EXPECT_EQ(letters[0].status, 413);
  EXPECT_EQ(letters[0].createdMs, kTestNowMs);
  EXPECT_EQ(takeAll(*open()), Bodies{"b"});
}

TEST_F(Outbox, KeepsTheLatestDeadLetters) {
  JXOutboxBounds bounds;
  bounds.maxDeadLetters = 3;
  Bodies expected;
  {
    const auto outbox = open(bounds);
    for (int i = 0; i < 20; ++i) {
      const std::string body = std::to_string(i);
      outbox->moveToDeadLetters(add(*outbox, body), 400);
      expected.push_back(body);
      if (expected.size() > 3) expected.erase(expected.begin());
      EXPECT_EQ(dead(), expected);
    }
    outbox->sync();
  }
  // At most five dead letters of about 80 bytes each before compaction.
  EXPECT_LT(std::filesystem::file_size(box_ + "/dead"), 600u);
  EXPECT_FALSE(std::filesystem::exists(box_ + "/dead.new"));
  EXPECT_EQ(dead(), expected);
}

TEST_F(Outbox, OnlyCountsARejectedRequestWhenDeadLettersAreDisabled) {
  JXOutboxBounds bounds;
  bounds.maxDeadLetters = 0;
  const auto outbox = open(bounds);
  outbox->moveToDeadLetters(add(*outbox, "a"), 400);
  EXPECT_EQ(outbox->counters().rejected, 1u);
  EXPECT_EQ(outbox->counters().queued, 0u);
  EXPECT_TRUE(dead().empty());
}

TEST_F(Outbox, TwoOutboxesShareTheDeadLetters) {
  JXOutboxBounds bounds;
  bounds.maxDeadLetters = 4;
  const auto one = open(bounds);
  const auto two = open(bounds);
  for (int i = 0; i < 30; ++i) {
    JXOutbox& outbox = i % 3 == 0 ? *one : *two;
    outbox.moveToDeadLetters(add(outbox, std::to_string(i)), 400);
  }
  EXPECT_EQ(dead(), (Bodies{"26", "27", "28", "29"}));
}

TEST_F(Outbox, AcceptsRequestsWhileAnotherThreadDelivers) {
  constexpr int kEach = 1'000;
  const auto outbox = open();
  std::vector<std::thread> adders;
  for (int thread = 0; thread < 3; ++thread) {
    adders.emplace_back([&, thread] {
      for (int i = 0; i < kEach; ++i)
        add(*outbox, std::to_string(thread * kEach + i));
    });
  }
  std::multiset<std::string> delivered;
  while (delivered.size() < 3 * kEach) {
    const auto request = outbox->take();
    if (!request) {
      outbox->sync();
      std::this_thread::yield();
      continue;
    }
    delivered.insert(request->body);
    outbox->markDelivered(request->id);
    if (delivered.size() % 500 == 0 && outbox->needsSync()) outbox->sync();
  }
  for (std::thread& adder : adders)
    adder.join();
  EXPECT_EQ(std::set<std::string>(delivered.begin(), delivered.end()).size(), 3u * kEach);
  EXPECT_EQ(outbox->counters().delivered, 3u * kEach);
  EXPECT_EQ(outbox->counters().queued, 0u);
}

TEST_F(Outbox, LogSinkMayCallBack) {
  const auto outbox = open();
  int calls = 0;
  JXLogger::sharedInstance().setSink([&](int, std::string_view) {
    ++calls;
    EXPECT_EQ(outbox->counters().queued, 1u);
  });
  const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
  add(*outbox, "a");
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace jx
