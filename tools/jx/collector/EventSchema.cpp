// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventSchema.h"

#include <array>
#include <cstdint>
#include <string>

namespace jx {
namespace {

constexpr const char* kFirstTables = R"sql(
CREATE TABLE events (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  received_ms INTEGER NOT NULL,
  last_seen_ms INTEGER NOT NULL,
  repeats INTEGER NOT NULL DEFAULT 0,
  event_id TEXT,
  name TEXT,
  event_timestamp INTEGER,
  site INTEGER,
  token TEXT,
  problem TEXT,
  method TEXT NOT NULL,
  path TEXT NOT NULL,
  query TEXT NOT NULL,
  headers TEXT NOT NULL,
  body BLOB NOT NULL
);
CREATE UNIQUE INDEX events_by_event_id ON events (event_id) WHERE event_id IS NOT NULL;
CREATE INDEX events_by_name ON events (name, repeats, problem);
CREATE INDEX events_by_received ON events (received_ms);
CREATE INDEX events_by_last_seen ON events (last_seen_ms);
CREATE TABLE counters (name TEXT PRIMARY KEY, value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO counters VALUES ('evicted', 0);
)sql";

// Moves the requests to their own table, so that lists and counts read only small rows. The store
// fills in the validation columns afterwards, because the rules version 0 is never current. The
// indexes include the row ID because lists filter by name and sort by arrival.
constexpr const char* kValidatedEvents = R"sql(
CREATE TABLE requests (
  id INTEGER PRIMARY KEY,
  method TEXT NOT NULL,
  path TEXT NOT NULL,
  query TEXT NOT NULL,
  headers TEXT NOT NULL,
  body BLOB NOT NULL
);
INSERT INTO requests SELECT id, method, path, query, headers, body FROM events;
CREATE TABLE validated (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  received_ms INTEGER NOT NULL,
  last_seen_ms INTEGER NOT NULL,
  repeats INTEGER NOT NULL DEFAULT 0,
  event_id TEXT,
  name TEXT,
  class TEXT,
  good INTEGER NOT NULL DEFAULT 0,
  errors INTEGER NOT NULL DEFAULT 0,
  notes INTEGER NOT NULL DEFAULT 0,
  session TEXT,
  video_session TEXT,
  event_timestamp INTEGER,
  site INTEGER,
  token TEXT,
  problem TEXT,
  bytes INTEGER NOT NULL DEFAULT 0,
  line TEXT NOT NULL DEFAULT ''
);
INSERT INTO validated (id, received_ms, last_seen_ms, repeats, event_id)
  SELECT id, received_ms, last_seen_ms, repeats, event_id FROM events;
DROP TABLE events;
ALTER TABLE validated RENAME TO events;
CREATE UNIQUE INDEX events_by_event_id ON events (event_id) WHERE event_id IS NOT NULL;
CREATE INDEX events_by_name ON events (name, id, good, repeats, notes);
CREATE INDEX events_by_received ON events (received_ms, good);
CREATE INDEX events_by_last_seen ON events (last_seen_ms);
CREATE INDEX events_by_session ON events (session, id, received_ms, good, name)
  WHERE session IS NOT NULL;
CREATE INDEX events_by_video_session ON events (video_session, id, session, received_ms)
  WHERE video_session IS NOT NULL;
CREATE INDEX bad_events ON events (id) WHERE good = 0;
INSERT INTO counters VALUES ('rules', 0);
)sql";

// Step n migrates version n to version n + 1. Only append steps; never change existing ones.
constexpr std::array<const char*, 2> kSteps{kFirstTables, kValidatedEvents};

}  // namespace

Done migrateEvents(SqliteDatabase& database) {
  const Result<std::int64_t> found = database.oneInteger("PRAGMA user_version");
  if (!found) return found.error();
  const auto newest = static_cast<std::int64_t>(kSteps.size());
  if (*found < 0 || *found > newest) {
    return Error{"the database was written by a newer version of jx"};
  }
  for (std::int64_t version = *found; version < newest; ++version) {
    const Done stepped = database.execute(
        "BEGIN IMMEDIATE;" + std::string(kSteps[static_cast<std::size_t>(version)]) +
        "PRAGMA user_version = " + std::to_string(version + 1) + ";COMMIT");
    if (!stepped) return stepped;
  }
  return done();
}

}  // namespace jx
