// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventStore.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "tests/tools/jx/ScratchFolder.h"

namespace jx {
namespace {

ReceivedRequest requestWith(const std::string& body, std::int64_t receivedMs = 1000) {
  ReceivedRequest request;
  request.receivedMs = receivedMs;
  request.method = "POST";
  request.path = "/events";
  request.query = "jx_s=7&token=key";
  request.headers = {{"Content-Type", "application/json"}, {"X-Twice", "a"}, {"X-Twice", "b"}};
  request.body = body;
  return request;
}

std::string eventBody(const std::string& id, const std::string& name) {
  return R"({"event_name":")" + name + R"(","context":{"event_id":")" + id + R"("}})";
}

std::unique_ptr<EventStore> openStore(const std::filesystem::path& file,
                                      std::int64_t maxEvents = 100) {
  Result<std::unique_ptr<EventStore>> store = EventStore::open(file, maxEvents);
  if (!store) throw std::runtime_error(store.error().text);
  return std::move(*store);
}

// Returns the bodies of the matching events, in order.
std::vector<std::string> bodies(const EventStore& store, const EventQuery& query = {}) {
  std::vector<std::string> found;
  const auto events = store.reading().list(query);
  if (!events) throw std::runtime_error(events.error().text);
  for (const StoredEvent& event : *events)
    found.push_back(event.request.body);
  return found;
}

TEST(EventStore, StoresEveryPartOfARequest) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  const std::string body =
      R"({"event_name":"play","context":{"event_id":"e1","event_timestamp":9}})";
  const Result<std::int64_t> id = store->add(requestWith(body, 1234));
  ASSERT_TRUE(id);
  const auto event = store->reading().find(*id);
  ASSERT_TRUE(event && *event);
  EXPECT_EQ((*event)->request.receivedMs, 1234);
  EXPECT_EQ((*event)->request.method, "POST");
  EXPECT_EQ((*event)->request.path, "/events");
  EXPECT_EQ((*event)->request.query, "jx_s=7&token=key");
  EXPECT_EQ((*event)->request.headers,
            (std::vector<std::pair<std::string, std::string>>{
                {"Content-Type", "application/json"}, {"X-Twice", "a"}, {"X-Twice", "b"}}));
  EXPECT_EQ((*event)->request.body, body);
  EXPECT_EQ((*event)->metadata.eventID, std::optional<std::string>("e1"));
  EXPECT_EQ((*event)->metadata.name, std::optional<std::string>("play"));
  EXPECT_EQ((*event)->metadata.eventTimestamp, std::optional<std::int64_t>(9));
  EXPECT_EQ((*event)->metadata.site, std::optional<std::int64_t>(7));
  EXPECT_EQ((*event)->metadata.token, std::optional<std::string>("key"));
  EXPECT_EQ((*event)->metadata.problem, std::optional<std::string>());
}

TEST(EventStore, StoresBodiesByteForByte) {
  const ScratchFolder folder;
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte)
    everyByte += static_cast<char>(byte);
  {
    const auto store = openStore(folder / "events.db");
    ASSERT_TRUE(store->add(requestWith(everyByte)));
    ASSERT_TRUE(store->add(requestWith("")));
  }
  const auto reopened = openStore(folder / "events.db");
  EXPECT_EQ(bodies(*reopened), (std::vector<std::string>{everyByte, ""}));
}

TEST(EventStore, StoresARepeatedEventIdOnceAndCountsIt) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  const auto first = store->add(requestWith(eventBody("e1", "play"), 10));
  ASSERT_TRUE(store->add(requestWith(eventBody("e2", "stop"), 20)));
  const auto second = store->add(requestWith(eventBody("e1", "play"), 30));
  const auto third = store->add(requestWith(eventBody("e1", "play"), 40));
  ASSERT_TRUE(first && second && third);
  EXPECT_EQ(*second, *first);
  EXPECT_EQ(*third, *first);
  const auto event = store->reading().find(*first);
  ASSERT_TRUE(event && *event);
  EXPECT_EQ((*event)->repeats, 2);
  EXPECT_EQ((*event)->request.receivedMs, 10);
  EXPECT_EQ((*event)->lastSeenMs, 40);
  EXPECT_EQ(bodies(*store).size(), 2u);
}

TEST(EventStore, DoesNotCountRequestsWithoutEventIdAsRepeats) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  ASSERT_TRUE(store->add(requestWith("{}")));
  ASSERT_TRUE(store->add(requestWith("{}")));
  EXPECT_EQ(bodies(*store), (std::vector<std::string>{"{}", "{}"}));
}

TEST(EventStore, EvictsTheOldestEventsAtTheLimit) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db", 3);
  for (const char* body : {"[1]", "[2]", "[3]", "[4]", "[5]"}) {
    ASSERT_TRUE(store->add(requestWith(body)));
  }
  EXPECT_EQ(bodies(*store), (std::vector<std::string>{"[3]", "[4]", "[5]"}));
  const auto summary = store->reading().summary(0);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->events, 3);
  EXPECT_EQ(summary->evicted, 2);
}

TEST(EventStore, AppliesASmallerLimitAtTheNextStart) {
  const ScratchFolder folder;
  {
    const auto store = openStore(folder / "events.db", 3);
    for (const char* body : {"[1]", "[2]", "[3]"})
      ASSERT_TRUE(store->add(requestWith(body)));
  }
  const auto store = openStore(folder / "events.db", 2);
  EXPECT_EQ(bodies(*store), (std::vector<std::string>{"[2]", "[3]"}));
  ASSERT_TRUE(store->add(requestWith("[4]")));
  EXPECT_EQ(bodies(*store), (std::vector<std::string>{"[3]", "[4]"}));
}

TEST(EventStore, DoesNotReuseRowIds) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db", 1);
  const auto first = store->add(requestWith("[1]"));
  const auto second = store->add(requestWith("[2]"));
  ASSERT_TRUE(first && second);
  EXPECT_GT(*second, *first);
  const auto evicted = store->reading().find(*first);
  ASSERT_TRUE(evicted);
  EXPECT_FALSE(*evicted);
}

TEST(EventStore, ListsTheNewestEventsOrThoseAfterARow) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  std::vector<std::int64_t> ids;
  for (const char* body : {"[1]", "[2]", "[3]", "[4]"}) {
    const auto id = store->add(requestWith(body));
    ASSERT_TRUE(id);
    ids.push_back(*id);
  }
  EventQuery query;
  query.limit = 2;
  EXPECT_EQ(bodies(*store, query), (std::vector<std::string>{"[3]", "[4]"}));
  query.after = ids[0];
  EXPECT_EQ(bodies(*store, query), (std::vector<std::string>{"[2]", "[3]"}));
  query.after = ids[3];
  EXPECT_EQ(bodies(*store, query), (std::vector<std::string>{}));
}

TEST(EventStore, ListsEventsOfOneName) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  ASSERT_TRUE(store->add(requestWith(eventBody("e1", "play"))));
  ASSERT_TRUE(store->add(requestWith(eventBody("e2", "stop"))));
  EventQuery query;
  query.name = "stop";
  EXPECT_EQ(bodies(*store, query), (std::vector<std::string>{eventBody("e2", "stop")}));
}

TEST(EventStore, ListStopsEarlyForLargeBodiesAndCanBeContinued) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  const std::string large(std::size_t{12} * 1024 * 1024, 'x');
  for (int i = 0; i < 4; ++i)
    ASSERT_TRUE(store->add(requestWith(large)));
  EventQuery query;
  query.after = 0;
  const auto first = store->reading().list(query);
  ASSERT_TRUE(first);
  ASSERT_EQ(first->size(), 3u);
  query.after = first->back().id;
  const auto rest = store->reading().list(query);
  ASSERT_TRUE(rest);
  EXPECT_EQ(rest->size(), 1u);
}

TEST(EventStore, SummaryCountsRequestsEventsRepeatsAndNames) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  ASSERT_TRUE(store->add(requestWith(eventBody("e1", "play"), 100)));
  ASSERT_TRUE(store->add(requestWith(eventBody("e2", "stop"), 200)));
  ASSERT_TRUE(store->add(requestWith(eventBody("e3", "play"), 300)));
  ASSERT_TRUE(store->add(requestWith(eventBody("e1", "play"), 400)));
  ASSERT_TRUE(store->add(requestWith("garbage", 350)));
  const auto summary = store->reading().summary(0);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->requests, 5);
  EXPECT_EQ(summary->events, 4);
  EXPECT_EQ(summary->repeats, 1);
  EXPECT_EQ(summary->good, 0);
  EXPECT_EQ(summary->bad, 4);
  EXPECT_EQ(summary->firstMs, std::optional<std::int64_t>(100));
  EXPECT_EQ(summary->lastMs, std::optional<std::int64_t>(400));
  EXPECT_EQ(summary->byName, (std::vector<EventSummary::Name>{
                                 {std::nullopt, 1, 1}, {"play", 2, 2}, {"stop", 1, 1}}));
}

TEST(EventStore, ReturnsAnEmptySummaryForAnEmptyStore) {
  const ScratchFolder folder;
  const auto summary = openStore(folder / "events.db")->reading().summary(0);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->requests, 0);
  EXPECT_EQ(summary->firstMs, std::optional<std::int64_t>());
  EXPECT_TRUE(summary->byName.empty());
}

TEST(EventStore, StoresEventsAndCountsRepeatsFromManyThreads) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db", 10'000);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([&store, thread] {
      for (int i = 0; i < 50; ++i) {
        EXPECT_TRUE(store->add(requestWith(eventBody("shared" + std::to_string(i), "shared"))));
        const std::string own = std::to_string(thread) + "-" + std::to_string(i);
        EXPECT_TRUE(store->add(requestWith(eventBody(own, "own"))));
        EXPECT_TRUE(store->reading().summary(0));
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  const auto summary = store->reading().summary(0);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->requests, 800);
  EXPECT_EQ(summary->events, 450);
  EXPECT_EQ(summary->repeats, 350);
}

TEST(EventStore, RemoveAllResetsEventsRepeatsAndEvictions) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db", 2);
  for (const char* id : {"e1", "e2", "e3"})
    ASSERT_TRUE(store->add(requestWith(eventBody(id, "play"))));
  const Result<std::int64_t> removed = store->removeAll();
  ASSERT_TRUE(removed);
  EXPECT_EQ(*removed, 2);
  const auto summary = store->reading().summary(0);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->events, 0);
  EXPECT_EQ(summary->evicted, 0);
  const auto again = store->add(requestWith(eventBody("e1", "play")));
  ASSERT_TRUE(again);
  EXPECT_EQ(*again, 4);
}

TEST(EventStore, RestoresEventsWithTheirRepeatsAndTimes) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  StoredEvent event;
  event.request = requestWith(eventBody("e1", "play"), 10);
  event.lastSeenMs = 40;
  event.repeats = 3;
  const Result<bool> first = store->restore(event);
  const Result<bool> second = store->restore(event);
  ASSERT_TRUE(first && second);
  EXPECT_TRUE(*first);
  EXPECT_FALSE(*second);
  const auto kept = store->reading().find(1);
  ASSERT_TRUE(kept && *kept);
  EXPECT_EQ((*kept)->receivedMs, 10);
  EXPECT_EQ((*kept)->lastSeenMs, 40);
  EXPECT_EQ((*kept)->repeats, 3);
}

TEST(EventStore, PublishesArrivalsRepeatsAndResets) {
  const ScratchFolder folder;
  const auto store = openStore(folder / "events.db");
  EventBroadcaster::Subscription subscription(store->broadcaster());
  ASSERT_TRUE(store->add(requestWith(eventBody("e1", "play"))));
  ASSERT_TRUE(store->add(requestWith(eventBody("e1", "play"))));
  ASSERT_TRUE(store->removeAll());
  const EventBroadcaster::Updates updates = subscription.take();
  EXPECT_EQ(updates.last, 1);
  ASSERT_EQ(updates.signals.size(), 2u);
  EXPECT_EQ(updates.signals[0].kind, EventBroadcaster::Signal::Kind::Repeat);
  EXPECT_EQ(updates.signals[0].id, 1);
  EXPECT_EQ(updates.signals[0].repeats, 1);
  EXPECT_EQ(updates.signals[1].kind, EventBroadcaster::Signal::Kind::Reset);
  EXPECT_EQ(updates.signals[1].id, 1);
}

// The schema of the first version of the program.
constexpr const char* kFirstVersion = R"sql(
CREATE TABLE events (
  id INTEGER PRIMARY KEY AUTOINCREMENT, received_ms INTEGER NOT NULL,
  last_seen_ms INTEGER NOT NULL, repeats INTEGER NOT NULL DEFAULT 0, event_id TEXT, name TEXT,
  event_timestamp INTEGER, site INTEGER, token TEXT, problem TEXT, method TEXT NOT NULL,
  path TEXT NOT NULL, query TEXT NOT NULL, headers TEXT NOT NULL, body BLOB NOT NULL);
CREATE UNIQUE INDEX events_by_event_id ON events (event_id) WHERE event_id IS NOT NULL;
CREATE INDEX events_by_name ON events (name, repeats, problem);
CREATE INDEX events_by_received ON events (received_ms);
CREATE INDEX events_by_last_seen ON events (last_seen_ms);
CREATE TABLE counters (name TEXT PRIMARY KEY, value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO counters VALUES ('evicted', 5);
INSERT INTO events VALUES (6, 100, 300, 2, 'e1', 'login', 9, 7, 'key', NULL, 'POST', '/events',
  'jx_s=7&token=key', '[{"name":"A","value":"b"}]',
  CAST('{"event_name":"login","context":{"event_id":"e1","event_timestamp":9}}' AS BLOB));
INSERT INTO events VALUES (8, 200, 200, 0, NULL, NULL, NULL, NULL, NULL, 'not JSON', 'POST',
  '/events', '', '[]', CAST('garbage' AS BLOB));
PRAGMA user_version = 1;
)sql";

TEST(EventStore, MigratesAndValidatesAFileOfTheFirstVersion) {
  const ScratchFolder folder;
  {
    Result<SqliteDatabase> database = SqliteDatabase::open(folder / "events.db");
    ASSERT_TRUE(database);
    ASSERT_TRUE(database->execute(kFirstVersion));
  }
  const auto store = openStore(folder / "events.db");
  const auto events = store->reading().list({});
  ASSERT_TRUE(events);
  ASSERT_EQ(events->size(), 2u);
  const StoredEvent& first = events->front();
  EXPECT_EQ(first.id, 6);
  EXPECT_EQ(first.receivedMs, 100);
  EXPECT_EQ(first.lastSeenMs, 300);
  EXPECT_EQ(first.repeats, 2);
  EXPECT_EQ(first.className, std::optional<std::string>("JXLoginEvent"));
  EXPECT_EQ(first.errors, 3);  // device, application, user
  EXPECT_EQ(first.metadata.token, std::optional<std::string>("key"));
  EXPECT_EQ(first.bytes, 70);
  EXPECT_EQ(first.request.headers.size(), 1u);
  EXPECT_EQ(first.request.body.size(), 70u);
  EXPECT_EQ(events->back().metadata.problem, std::optional<std::string>("not JSON"));
  EXPECT_EQ(events->back().request.body, "garbage");
  const auto summary = store->reading().summary(0);
  ASSERT_TRUE(summary);
  EXPECT_EQ(summary->evicted, 5);
  EXPECT_EQ(summary->bad, 2);
  const auto next = store->add(requestWith("{}"));
  ASSERT_TRUE(next);
  EXPECT_EQ(*next, 9);
}

TEST(EventStore, RevalidatesEventsWhenTheRulesChange) {
  const ScratchFolder folder;
  {
    const auto store = openStore(folder / "events.db");
    ASSERT_TRUE(store->add(requestWith(eventBody("e1", "login"))));
  }
  {
    Result<SqliteDatabase> database = SqliteDatabase::open(folder / "events.db");
    ASSERT_TRUE(database);
    ASSERT_TRUE(
        database->execute("UPDATE events SET class = 'Other', good = 1, errors = 0, "
                          "line = 'old'"));
  }
  const auto rowOf = [&folder] {
    const auto rows = openStore(folder / "events.db")->reading().rows({});
    if (!rows) throw std::runtime_error(rows.error().text);
    return rows->at(0);
  };
  EXPECT_EQ(rowOf().className, std::optional<std::string>("Other"));
  {
    Result<SqliteDatabase> database = SqliteDatabase::open(folder / "events.db");
    ASSERT_TRUE(database);
    ASSERT_TRUE(database->execute("UPDATE counters SET value = value + 1 WHERE name = 'rules'"));
  }
  EXPECT_EQ(rowOf().className, std::optional<std::string>("JXLoginEvent"));
  EXPECT_FALSE(rowOf().isValid());
  EXPECT_EQ(rowOf().line, "");
}

TEST(EventStore, ReportsAFileThatIsNotADatabase) {
  const ScratchFolder folder;
  std::ofstream(folder / "events.db") << std::string(5000, 'x');
  const auto store = EventStore::open(folder / "events.db", 10);
  ASSERT_FALSE(store);
  EXPECT_NE(store.error().text.find("file is not a database"), std::string::npos)
      << store.error().text;
}

TEST(EventStore, ReportsAFileOfANewerVersion) {
  const ScratchFolder folder;
  openStore(folder / "events.db");
  {
    Result<SqliteDatabase> database = SqliteDatabase::open(folder / "events.db");
    ASSERT_TRUE(database);
    ASSERT_TRUE(database->execute("PRAGMA user_version = 99"));
  }
  const auto store = EventStore::open(folder / "events.db", 10);
  ASSERT_FALSE(store);
  EXPECT_NE(store.error().text.find("newer version"), std::string::npos);
}

}  // namespace
}  // namespace jx
