// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventReports.h"

#include <string_view>

namespace jx {
namespace {

constexpr std::int64_t kMinuteMs = 60'000;
constexpr std::int64_t kMinutes = 60;

// A read transaction: all statements during its lifetime see the same state of the database.
class Snapshot {
 public:
  explicit Snapshot(SqliteDatabase& database)
      : database_(database), began_(database.execute("BEGIN")) {}
  ~Snapshot() {
    if (began_) static_cast<void>(database_.execute("COMMIT"));
  }
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

  const Done& began() const { return began_; }

 private:
  SqliteDatabase& database_;
  Done began_;
};

// Binds `text`, or `number` when `text` is null, to the first parameter. Calls `take` with each
// row.
template <typename Take>
Done forEachRow(SqliteDatabase& database, std::string_view sql, const std::string* text,
                std::int64_t number, const Take& take) {
  Result<SqliteStatement> statement = database.prepare(sql);
  if (!statement) return statement.error();
  if (text != nullptr) {
    statement->bindText(1, *text);
  } else {
    statement->bind(1, number);
  }
  int status = SQLITE_DONE;
  while ((status = statement->step()) == SQLITE_ROW)
    take(*statement);
  return status == SQLITE_DONE ? done() : database.lastFailure("cannot read events");
}

Done readTotals(SqliteDatabase& database, EventSummary& summary) {
  const Done named = forEachRow(
      database,
      // Earlier versions imported any number of repeats, and a sum that overflows is an error.
      "SELECT name, COUNT(*), SUM(good), SUM(MAX(0, MIN(repeats, 1000000000))), "
      "SUM(MAX(0, MIN(notes, 1000000000))) FROM events GROUP BY name ORDER BY name LIMIT ?1",
      nullptr, -1, [&summary](const SqliteStatement& row) {
        const std::int64_t count = row.integer(1);
        const std::int64_t good = row.integer(2);
        summary.byName.push_back({row.optionalText(0), count, count - good});
        summary.events += count;
        summary.good += good;
        summary.repeats += row.integer(3);
        summary.notes += row.integer(4);
      });
  if (!named) return named;
  summary.bad = summary.events - summary.good;
  summary.requests = summary.events + summary.repeats;
  return forEachRow(
      database,
      "SELECT (SELECT value FROM counters WHERE name = 'evicted'), "
      "(SELECT MIN(received_ms) FROM events), (SELECT MAX(last_seen_ms) FROM events) LIMIT ?1",
      nullptr, 1, [&summary](const SqliteStatement& row) {
        summary.evicted = row.integer(0);
        summary.firstMs = row.optionalInteger(1);
        summary.lastMs = row.optionalInteger(2);
      });
}

Done readMinutes(SqliteDatabase& database, std::int64_t nowMs, EventSummary& summary) {
  const std::int64_t first = (nowMs / kMinuteMs - kMinutes + 1) * kMinuteMs;
  for (std::int64_t i = 0; i < kMinutes; ++i)
    summary.minutes.push_back({first + i * kMinuteMs, 0, 0});
  return forEachRow(
      database,
      "SELECT received_ms / 60000, SUM(good), COUNT(*) FROM events WHERE received_ms >= ?1 "
      "GROUP BY 1",
      nullptr, first, [&](const SqliteStatement& row) {
        const std::int64_t place = row.integer(0) - first / kMinuteMs;
        if (place < 0 || place >= kMinutes) return;
        EventSummary::Minute& minute = summary.minutes[static_cast<std::size_t>(place)];
        minute.good = row.integer(1);
        minute.bad = row.integer(2) - minute.good;
      });
}

Done readNames(SqliteDatabase& database, SessionSummary& session) {
  return forEachRow(database,
                    "SELECT COALESCE(name, ''), COUNT(*) FROM events WHERE session = ?1 "
                    "GROUP BY 1 ORDER BY 1",
                    &session.id, 0, [&session](const SqliteStatement& row) {
                      session.names.emplace_back(row.bytes(0), row.integer(1));
                    });
}

Done readVideos(SqliteDatabase& database, SessionSummary& session) {
  return forEachRow(
      database,
      "SELECT video_session, MIN(received_ms), MAX(received_ms), COUNT(*) FROM events "
      "WHERE session = ?1 AND video_session IS NOT NULL GROUP BY 1 ORDER BY MIN(id)",
      &session.id, 0, [&session](const SqliteStatement& row) {
        session.videos.push_back({row.bytes(0), row.integer(1), row.integer(2), row.integer(3)});
      });
}

}  // namespace

Result<EventSummary> readSummary(SqliteDatabase& database, std::int64_t nowMs) {
  const Snapshot snapshot(database);
  if (!snapshot.began()) return snapshot.began().error();
  EventSummary summary;
  if (const Done totals = readTotals(database, summary); !totals) return totals.error();
  if (const Done minutes = readMinutes(database, nowMs, summary); !minutes) {
    return minutes.error();
  }
  return summary;
}

Result<std::vector<SessionSummary>> readSessions(SqliteDatabase& database, std::int64_t limit) {
  const Snapshot snapshot(database);
  if (!snapshot.began()) return snapshot.began().error();
  std::vector<SessionSummary> sessions;
  const Done read = forEachRow(
      database,
      "SELECT session, MIN(received_ms), MAX(received_ms), COUNT(*), SUM(good) FROM events "
      "WHERE session IS NOT NULL GROUP BY session ORDER BY MAX(id) DESC LIMIT ?1",
      nullptr, limit, [&sessions](const SqliteStatement& row) {
        SessionSummary& session = sessions.emplace_back();
        session.id = row.bytes(0);
        session.firstMs = row.integer(1);
        session.lastMs = row.integer(2);
        session.events = row.integer(3);
        session.bad = session.events - row.integer(4);
      });
  if (!read) return read.error();
  for (SessionSummary& session : sessions) {
    if (const Done names = readNames(database, session); !names) return names.error();
    if (const Done videos = readVideos(database, session); !videos) return videos.error();
  }
  return sessions;
}

}  // namespace jx
