// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// File modes, sizes and numbers that a hostile client or an earlier version can cause.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/collector/EventStore.h"

namespace jx {
namespace {

constexpr std::int64_t kMebibyte = std::int64_t{1024} * 1024;

ReceivedRequest requestWith(const std::string& body) {
  ReceivedRequest request;
  request.receivedMs = 1000;
  request.method = "POST";
  request.path = "/events";
  request.body = body;
  return request;
}

std::unique_ptr<EventStore> openStore(const std::filesystem::path& file,
                                      std::int64_t maxBytes = EventStore::kDefaultMaxBytes) {
  Result<std::unique_ptr<EventStore>> store = EventStore::open(file, 100, maxBytes);
  if (!store) throw std::runtime_error(store.error().text);
  return std::move(*store);
}

// Returns the first byte of each body, in order.
std::string firstBytes(const EventStore& store) {
  std::string found;
  const auto events = store.reading().list({});
  if (!events) throw std::runtime_error(events.error().text);
  for (const StoredEvent& event : *events)
    found += event.request.body.at(0);
  return found;
}

TEST(EventStoreLimits, RestrictsItsFilesToTheOwner) {
  const ScratchFolder folder;
  for (const mode_t mask : {0000, 0022, 0777}) {
    const auto file = folder / ("events-" + std::to_string(mask) + ".db");
    const mode_t before = ::umask(mask);
    const auto store = openStore(file);
    const Result<std::int64_t> id = store->add(requestWith("{}"));
    ::umask(before);
    ASSERT_TRUE(id);
    for (const char* companion : {"", "-wal", "-shm"}) {
      struct stat status {};
      ASSERT_EQ(::stat((file.string() + companion).c_str(), &status), 0) << companion;
      EXPECT_EQ(status.st_mode & 07777, 0600u) << companion << " with umask " << mask;
    }
  }
}

TEST(EventStoreLimits, RestrictsFilesOfEarlierVersionsToTheOwner) {
  const ScratchFolder folder;
  const auto file = folder / "events.db";
  ASSERT_TRUE(openStore(file)->add(requestWith("{}")));
  // Left by a process that was killed.
  std::ofstream(file.string() + "-journal");
  ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
  ASSERT_EQ(::chmod((file.string() + "-journal").c_str(), 0644), 0);
  const auto store = openStore(file);
  ASSERT_TRUE(store->add(requestWith("{}")));
  EXPECT_EQ(firstBytes(*store).size(), 2u);
  for (const char* companion : {"", "-wal", "-shm", "-journal"}) {
    struct stat status {};
    if (::stat((file.string() + companion).c_str(), &status) != 0) continue;
    EXPECT_EQ(status.st_mode & 07777, 0600u) << companion;
  }
}

TEST(EventStoreLimits, CountsEventsWhoseRepeatsExceedAnySum) {
  const ScratchFolder folder;
  const auto file = folder / "events.db";
  const auto store = openStore(file);
  ASSERT_TRUE(store->add(requestWith("{}")));
  ASSERT_TRUE(store->add(requestWith("{}")));
  // As earlier versions imported them.
  Result<SqliteDatabase> database = SqliteDatabase::open(file);
  ASSERT_TRUE(database);
  ASSERT_TRUE(database->execute(
      "UPDATE events SET repeats = 9223372036854775807, notes = 9223372036854775807, "
      "received_ms = 9223372036854775807, last_seen_ms = -9223372036854775807"));
  const auto summary = store->reading().summary(1000);
  ASSERT_TRUE(summary) << summary.error().text;
  EXPECT_EQ(summary->events, 2);
  EXPECT_EQ(summary->repeats, 2'000'000'000);
  EXPECT_EQ(summary->requests, 2'000'000'002);
  EXPECT_EQ(summary->notes, 2'000'000'000);
}

TEST(EventStoreLimits, EvictsTheOldestEventsAboveTheSizeLimit) {
  const ScratchFolder folder;
  const auto file = folder / "events.db";
  const auto store = openStore(file, kMebibyte);
  for (const char first : std::string("abcdefghij"))
    ASSERT_TRUE(store->add(requestWith(std::string(300 * 1024, first))));
  // The tables, their indexes and three bodies fit into 1 MiB, four bodies do not.
  EXPECT_EQ(firstBytes(*store), "hij");
  const auto summary = store->reading().summary(1000);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->events, 3);
  EXPECT_EQ(summary->evicted, 7);
  // Freed pages are used again: the file holds at most the limit and one event.
  EXPECT_LE(static_cast<std::int64_t>(std::filesystem::file_size(file)), 2 * kMebibyte);
}

TEST(EventStoreLimits, CountsHeadersAndTheQueryInTheSize) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db", kMebibyte);
  for (const char first : std::string("abcdef")) {
    ReceivedRequest request = requestWith(std::string(1, first));
    request.headers = {{"X-Long", std::string(150 * 1024, 'x')}};
    request.query = std::string(150 * 1024, 'y');
    ASSERT_TRUE(store->add(request));
  }
  EXPECT_EQ(firstBytes(*store), "def");
}

TEST(EventStoreLimits, StoresTheNewestEventWhateverItsSize) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db", kMebibyte);
  for (const char first : std::string("ab"))
    ASSERT_TRUE(store->add(requestWith(std::string(2 * 1024 * 1024, first))));
  EXPECT_EQ(firstBytes(*store), "b");
}

TEST(EventStoreLimits, AppliesASmallerSizeLimitWhenOpened) {
  const ScratchFolder folder;
  const auto file = folder / "events.db";
  {
    const auto store = openStore(file);
    for (const char first : std::string("abcdef"))
      ASSERT_TRUE(store->add(requestWith(std::string(300 * 1024, first))));
    EXPECT_EQ(firstBytes(*store), "abcdef");
  }
  EXPECT_EQ(firstBytes(*openStore(file, kMebibyte)), "def");
}

}  // namespace
}  // namespace jx
