// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventStore.h"

#include <algorithm>
#include <limits>

#include "tools/jx/collector/EventSchema.h"
#include "tools/jx/collector/HeaderJson.h"

namespace jx {
namespace {

constexpr std::size_t kListBytes = std::size_t{32} * 1024 * 1024;

constexpr std::string_view kColumns =
    "SELECT id, received_ms, last_seen_ms, repeats, event_id, name, event_timestamp, site, token, "
    "problem, method, path, query, headers, body FROM events ";

StoredEvent eventOf(const SqliteStatement& row) {
  StoredEvent event;
  event.id = row.integer(0);
  event.request.receivedMs = row.integer(1);
  event.lastSeenMs = row.integer(2);
  event.repeats = row.integer(3);
  event.facts.eventID = row.optionalText(4);
  event.facts.name = row.optionalText(5);
  event.facts.eventTimestamp = row.optionalInteger(6);
  event.facts.site = row.optionalInteger(7);
  event.facts.token = row.optionalText(8);
  event.facts.problem = row.optionalText(9);
  event.request.method = row.bytes(10);
  event.request.path = row.bytes(11);
  event.request.query = row.bytes(12);
  event.request.headers = headersFromJson(row.bytes(13));
  event.request.body = row.bytes(14);
  return event;
}

std::string listText(const EventQuery& query) {
  std::string sql(kColumns);
  sql += "WHERE id > ?1";
  if (query.name) sql += " AND name = ?3";
  sql += query.after ? " ORDER BY id" : " ORDER BY id DESC";
  return sql + " LIMIT ?2";
}

}  // namespace

EventStore::EventStore(SqliteDatabase writer, SqliteDatabase reader, std::int64_t maxEvents)
    : maxEvents_(std::max<std::int64_t>(1, maxEvents)),
      writer_(std::move(writer)),
      reader_(std::move(reader)) {}

Outcome<std::unique_ptr<EventStore>> EventStore::open(const std::filesystem::path& file,
                                                      std::int64_t maxEvents) {
  Outcome<SqliteDatabase> writer = SqliteDatabase::open(file);
  if (!writer) return writer.failure();
  Outcome<SqliteDatabase> reader = SqliteDatabase::open(file);
  if (!reader) return reader.failure();
  std::unique_ptr<EventStore> store(
      new EventStore(std::move(*writer), std::move(*reader), maxEvents));
  for (const auto step : {&EventStore::migrate, &EventStore::prepare, &EventStore::countRows}) {
    const Done did = (store.get()->*step)();
    if (!did) return Failure{file.string() + ": " + did.failure().text};
  }
  return store;
}

Done EventStore::migrate() {
  // A write costs no fsync: a crash of the process loses nothing, a power cut the last seconds.
  const Done set = writer_.execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL");
  return set ? migrateEvents(writer_) : set;
}

Done EventStore::prepare() {
  struct Text {
    SqliteStatement& statement;
    std::string_view sql;
  };
  const Text texts[] = {
      {begin_, "BEGIN IMMEDIATE"},
      {commit_, "COMMIT"},
      {rollBack_, "ROLLBACK"},
      {repeat_,
       "UPDATE events SET repeats = repeats + 1, last_seen_ms = ?2 WHERE event_id = ?1 "
       "RETURNING id"},
      {insert_,
       "INSERT INTO events (received_ms, last_seen_ms, event_id, name, event_timestamp, site, "
       "token, problem, method, path, query, headers, body) "
       "VALUES (?1, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12)"},
      {evict_, "DELETE FROM events WHERE id IN (SELECT id FROM events ORDER BY id LIMIT ?1)"},
      {countEvicted_, "UPDATE counters SET value = value + ?1 WHERE name = 'evicted'"},
  };
  for (const Text& text : texts) {
    Outcome<SqliteStatement> statement = writer_.prepare(text.sql);
    if (!statement) return statement.failure();
    text.statement = std::move(*statement);
  }
  return done();
}

Done EventStore::countRows() {
  const Outcome<std::int64_t> count = writer_.oneInteger("SELECT COUNT(*) FROM events");
  if (!count) return count.failure();
  rows_ = *count;
  // The bound may be smaller than at the last start.
  if (rows_ <= maxEvents_) return done();
  if (const Done began = begin(); !began) return began;
  const std::int64_t surplus = rows_ - maxEvents_;
  if (const Done evicted = evict(surplus); !evicted) {
    rollBack();
    return evicted;
  }
  rows_ = maxEvents_;
  return commit();
}

Done EventStore::begin() {
  const SqliteUse use(begin_);
  return begin_.step() == SQLITE_DONE ? done() : writer_.lastFailure("cannot store events");
}

Done EventStore::commit() {
  {
    const SqliteUse use(commit_);
    if (commit_.step() == SQLITE_DONE) return done();
  }
  const Failure failure = writer_.lastFailure("cannot store events");
  rollBack();
  return failure;
}

void EventStore::rollBack() {
  const SqliteUse use(rollBack_);
  rollBack_.step();
}

Outcome<std::int64_t> EventStore::add(const ReceivedRequest& request) {
  // Read before the lock is taken: a large body takes a while.
  const EventFacts facts = EventFacts::read(request.query, request.body);
  const std::lock_guard<std::mutex> lock(writing_);
  if (const Done began = begin(); !began) return began.failure();
  const std::int64_t rowsBefore = rows_;
  const Outcome<std::int64_t> id = write(request, facts);
  if (!id) {
    rollBack();
    rows_ = rowsBefore;
    return id;
  }
  if (const Done committed = commit(); !committed) {
    rows_ = rowsBefore;
    return committed.failure();
  }
  return id;
}

Outcome<std::int64_t> EventStore::write(const ReceivedRequest& request, const EventFacts& facts) {
  const Outcome<std::optional<std::int64_t>> repeated = countRepeat(request, facts);
  if (!repeated) return repeated.failure();
  if (*repeated) return **repeated;
  const Outcome<std::int64_t> id = insert(request, facts);
  if (!id) return id;
  ++rows_;
  if (rows_ <= maxEvents_) return id;
  if (const Done evicted = evict(rows_ - maxEvents_); !evicted) return evicted.failure();
  rows_ = maxEvents_;
  return id;
}

Outcome<std::optional<std::int64_t>> EventStore::countRepeat(const ReceivedRequest& request,
                                                             const EventFacts& facts) {
  if (!facts.eventID) return std::optional<std::int64_t>();
  const SqliteUse use(repeat_);
  repeat_.bindText(1, *facts.eventID);
  repeat_.bind(2, request.receivedMs);
  const int status = repeat_.step();
  if (status == SQLITE_DONE) return std::optional<std::int64_t>();
  if (status != SQLITE_ROW) return writer_.lastFailure("cannot store the event");
  const std::int64_t id = repeat_.integer(0);
  if (repeat_.step() != SQLITE_DONE) return writer_.lastFailure("cannot store the event");
  return std::optional<std::int64_t>(id);
}

Outcome<std::int64_t> EventStore::insert(const ReceivedRequest& request, const EventFacts& facts) {
  const std::string headers = headersToJson(request.headers);
  const SqliteUse use(insert_);
  insert_.bind(1, request.receivedMs);
  insert_.bind(2, facts.eventID);
  insert_.bind(3, facts.name);
  insert_.bind(4, facts.eventTimestamp);
  insert_.bind(5, facts.site);
  insert_.bind(6, facts.token);
  insert_.bind(7, facts.problem);
  insert_.bindText(8, request.method);
  insert_.bindText(9, request.path);
  insert_.bindText(10, request.query);
  insert_.bindText(11, headers);
  insert_.bindBytes(12, request.body);
  if (insert_.step() != SQLITE_DONE) return writer_.lastFailure("cannot store the event");
  return writer_.lastInsertedRow();
}

Done EventStore::evict(std::int64_t count) {
  for (SqliteStatement* const statement : {&evict_, &countEvicted_}) {
    const SqliteUse use(*statement);
    statement->bind(1, count);
    if (statement->step() != SQLITE_DONE) return writer_.lastFailure("cannot make room");
  }
  return done();
}

Outcome<std::vector<StoredEvent>> EventStore::list(const EventQuery& query) const {
  const std::lock_guard<std::mutex> lock(reading_);
  Outcome<SqliteStatement> statement = reader_.prepare(listText(query));
  if (!statement) return statement.failure();
  statement->bind(1, query.after.value_or(std::numeric_limits<std::int64_t>::min()));
  statement->bind(2, std::max<std::int64_t>(0, query.limit));
  if (query.name) statement->bindText(3, *query.name);
  std::vector<StoredEvent> events;
  std::size_t bytes = 0;
  int status = SQLITE_DONE;
  while (bytes <= kListBytes && (status = statement->step()) == SQLITE_ROW) {
    events.push_back(eventOf(*statement));
    bytes += events.back().request.body.size();
  }
  if (status != SQLITE_ROW && status != SQLITE_DONE) {
    return reader_.lastFailure("cannot read the events");
  }
  if (!query.after) std::reverse(events.begin(), events.end());
  return events;
}

Outcome<std::optional<StoredEvent>> EventStore::find(std::int64_t id) const {
  const std::lock_guard<std::mutex> lock(reading_);
  Outcome<SqliteStatement> statement = reader_.prepare(std::string(kColumns) + "WHERE id = ?1");
  if (!statement) return statement.failure();
  statement->bind(1, id);
  const int status = statement->step();
  if (status == SQLITE_ROW) return std::optional<StoredEvent>(eventOf(*statement));
  if (status == SQLITE_DONE) return std::optional<StoredEvent>();
  return reader_.lastFailure("cannot read the events");
}

Outcome<EventSummary> EventStore::summary() const {
  const std::lock_guard<std::mutex> lock(reading_);
  // One statement, so that all counts are of one moment.
  Outcome<SqliteStatement> statement = reader_.prepare(
      "SELECT name, COUNT(*), SUM(repeats), COUNT(problem), "
      "(SELECT value FROM counters WHERE name = 'evicted'), "
      "(SELECT MIN(received_ms) FROM events), (SELECT MAX(last_seen_ms) FROM events) "
      "FROM events GROUP BY name ORDER BY name");
  if (!statement) return statement.failure();
  EventSummary summary;
  int status = SQLITE_DONE;
  while ((status = statement->step()) == SQLITE_ROW) {
    const std::int64_t count = statement->integer(1);
    summary.byName.emplace_back(statement->optionalText(0), count);
    summary.events += count;
    summary.repeats += statement->integer(2);
    summary.bad += statement->integer(3);
    summary.evicted = statement->integer(4);
    summary.firstMs = statement->optionalInteger(5);
    summary.lastMs = statement->optionalInteger(6);
  }
  if (status != SQLITE_DONE) return reader_.lastFailure("cannot read the events");
  summary.requests = summary.events + summary.repeats;
  return summary;
}

}  // namespace jx
