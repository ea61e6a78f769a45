// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventReading.h"

#include <algorithm>
#include <limits>
#include <string>

#include "tools/jx/collector/EventReports.h"
#include "tools/jx/collector/HeaderJson.h"

namespace jx {
namespace {

constexpr int kConnections = 4;
constexpr std::size_t kListBytes = std::size_t{32} * 1024 * 1024;
constexpr const char* kCannotRead = "cannot read events";

constexpr std::string_view kRowColumns =
    "e.id, received_ms, last_seen_ms, repeats, event_id, name, class, errors, notes, session, "
    "video_session, event_timestamp, site, token, problem, bytes, line";
constexpr int kRequestColumn = 17;
constexpr std::string_view kRequestColumns = ", method, path, query, headers, body";

EventRow rowOf(const SqliteStatement& row) {
  EventRow event;
  event.id = row.integer(0);
  event.receivedMs = row.integer(1);
  event.lastSeenMs = row.integer(2);
  event.repeats = row.integer(3);
  event.metadata.eventID = row.optionalText(4);
  event.metadata.name = row.optionalText(5);
  event.className = row.optionalText(6);
  event.errors = row.integer(7);
  event.notes = row.integer(8);
  event.metadata.session = row.optionalText(9);
  event.metadata.videoSession = row.optionalText(10);
  event.metadata.eventTimestamp = row.optionalInteger(11);
  event.metadata.site = row.optionalInteger(12);
  event.metadata.token = row.optionalText(13);
  event.metadata.problem = row.optionalText(14);
  event.bytes = row.integer(15);
  event.line = row.bytes(16);
  return event;
}

StoredEvent eventOf(const SqliteStatement& row) {
  StoredEvent event;
  static_cast<EventRow&>(event) = rowOf(row);
  event.request.receivedMs = event.receivedMs;
  event.request.method = row.bytes(kRequestColumn);
  event.request.path = row.bytes(kRequestColumn + 1);
  event.request.query = row.bytes(kRequestColumn + 2);
  event.request.headers = headersFromJson(row.bytes(kRequestColumn + 3));
  event.request.body = row.bytes(kRequestColumn + 4);
  return event;
}

// A row is small, unless a client sent a name or an ID of several megabytes.
std::size_t textBytes(const EventMetadata& metadata) {
  std::size_t bytes = 0;
  for (const std::optional<std::string>* text :
       {&metadata.eventID, &metadata.name, &metadata.session, &metadata.videoSession,
        &metadata.token, &metadata.problem})
    bytes += *text ? (*text)->size() : 0;
  return bytes;
}

std::string listText(const EventQuery& query, bool withRequests) {
  std::string sql = "SELECT " + std::string(kRowColumns);
  if (withRequests) sql += kRequestColumns;
  sql += " FROM events e";
  // CROSS JOIN fixes the join order, so that SQLite scans the small rows first.
  if (withRequests || query.text) sql += " CROSS JOIN requests r ON r.id = e.id";
  sql += " WHERE e.id > ?1 AND e.id < ?2";
  if (query.name) sql += " AND name = ?4";
  if (query.className) sql += " AND class = ?5";
  if (query.good) sql += *query.good ? " AND good = 1" : " AND good = 0";
  if (query.session) {
    sql +=
        " AND e.id IN (SELECT id FROM events WHERE session = ?6 UNION "
        "SELECT id FROM events WHERE video_session = ?6)";
  }
  if (query.sinceMs) sql += " AND received_ms >= ?7";
  if (query.text) sql += " AND contains_text(body, ?8)";
  return sql + (query.after ? " ORDER BY e.id LIMIT ?3" : " ORDER BY e.id DESC LIMIT ?3");
}

void bindList(SqliteStatement& statement, const EventQuery& query) {
  using Limits = std::numeric_limits<std::int64_t>;
  statement.bind(1, query.after.value_or(Limits::min()));
  statement.bind(2, query.before.value_or(Limits::max()));
  statement.bind(3, std::max<std::int64_t>(0, query.limit));
  if (query.name) statement.bindText(4, *query.name);
  if (query.className) statement.bindText(5, *query.className);
  if (query.session) statement.bindText(6, *query.session);
  if (query.sinceMs) statement.bind(7, *query.sinceMs);
  if (query.text) statement.bindText(8, *query.text);
}

}  // namespace

// Owns one of the connections until destruction. Waits until one is free.
class EventReading::Lease {
 public:
  explicit Lease(const EventReading& reading) : reading_(reading) {
    std::unique_lock<std::mutex> lock(reading_.mutex_);
    reading_.isFree_.wait(lock, [this] { return !reading_.free_.empty(); });
    connection_ = reading_.free_.back();
    reading_.free_.pop_back();
    connection_->search.begin();
  }
  ~Lease() {
    {
      const std::lock_guard<std::mutex> lock(reading_.mutex_);
      reading_.free_.push_back(connection_);
    }
    reading_.isFree_.notify_one();
  }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;

  SqliteDatabase& database() const { return connection_->database; }

 private:
  const EventReading& reading_;
  Connection* connection_;
};

Result<std::unique_ptr<EventReading>> EventReading::open(const std::filesystem::path& file) {
  std::unique_ptr<EventReading> reading(new EventReading());
  for (int i = 0; i < kConnections; ++i) {
    Result<SqliteDatabase> database = SqliteDatabase::open(file);
    if (!database) return database.error();
    Connection& connection = *reading->connections_.emplace_back(std::make_unique<Connection>());
    connection.database = std::move(*database);
    const Done installed = connection.search.install(connection.database);
    if (!installed) return installed.error();
    reading->free_.push_back(&connection);
  }
  return reading;
}

Result<std::vector<StoredEvent>> EventReading::list(const EventQuery& query) const {
  const Lease lease(*this);
  Result<SqliteStatement> statement = lease.database().prepare(listText(query, true));
  if (!statement) return statement.error();
  bindList(*statement, query);
  std::vector<StoredEvent> events;
  std::size_t bytes = 0;
  int status = SQLITE_DONE;
  while (bytes <= kListBytes && (status = statement->step()) == SQLITE_ROW) {
    events.push_back(eventOf(*statement));
    bytes += events.back().request.body.size();
  }
  if (status != SQLITE_ROW && status != SQLITE_DONE) {
    return lease.database().lastFailure(kCannotRead);
  }
  if (!query.after) std::reverse(events.begin(), events.end());
  return events;
}

Result<std::vector<EventRow>> EventReading::rows(const EventQuery& query) const {
  const Lease lease(*this);
  Result<SqliteStatement> statement = lease.database().prepare(listText(query, false));
  if (!statement) return statement.error();
  bindList(*statement, query);
  std::vector<EventRow> rows;
  std::size_t bytes = 0;
  int status = SQLITE_DONE;
  while (bytes <= kListBytes && (status = statement->step()) == SQLITE_ROW) {
    rows.push_back(rowOf(*statement));
    bytes += textBytes(rows.back().metadata);
  }
  if (status != SQLITE_ROW && status != SQLITE_DONE)
    return lease.database().lastFailure(kCannotRead);
  if (!query.after) std::reverse(rows.begin(), rows.end());
  return rows;
}

Result<std::optional<StoredEvent>> EventReading::find(std::int64_t id) const {
  const Lease lease(*this);
  Result<SqliteStatement> statement =
      lease.database().prepare("SELECT " + std::string(kRowColumns) + std::string(kRequestColumns) +
                               " FROM events e JOIN requests r ON r.id = e.id WHERE e.id = ?1");
  if (!statement) return statement.error();
  statement->bind(1, id);
  const int status = statement->step();
  if (status == SQLITE_ROW) return std::optional<StoredEvent>(eventOf(*statement));
  if (status == SQLITE_DONE) return std::optional<StoredEvent>();
  return lease.database().lastFailure(kCannotRead);
}

Result<std::optional<std::int64_t>> EventReading::previousOf(const EventRow& row) const {
  if (!row.metadata.name) return std::optional<std::int64_t>();
  const Lease lease(*this);
  for (const bool sameSession : {true, false}) {
    if (sameSession && !row.metadata.session) continue;
    Result<SqliteStatement> statement = lease.database().prepare(
        std::string("SELECT id FROM events WHERE name = ?1 AND id < ?2") +
        (sameSession ? " AND session = ?3" : "") + " ORDER BY id DESC LIMIT 1");
    if (!statement) return statement.error();
    statement->bindText(1, *row.metadata.name);
    statement->bind(2, row.id);
    if (sameSession) statement->bindText(3, *row.metadata.session);
    const int status = statement->step();
    if (status == SQLITE_ROW) return std::optional<std::int64_t>(statement->integer(0));
    if (status != SQLITE_DONE) return lease.database().lastFailure(kCannotRead);
  }
  return std::optional<std::int64_t>();
}

Result<EventSummary> EventReading::summary(std::int64_t nowMs) const {
  const Lease lease(*this);
  return readSummary(lease.database(), nowMs);
}

Result<std::vector<SessionSummary>> EventReading::sessions(std::int64_t limit) const {
  const Lease lease(*this);
  return readSessions(lease.database(), limit);
}

}  // namespace jx
