// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventSchema.h"

#include <array>
#include <cstdint>
#include <string>

namespace jx {
namespace {

// The large columns come last, so that the small ones are read without them.
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

// Step n leads from version n to version n + 1. Steps are only ever added.
constexpr std::array<const char*, 1> kSteps{kFirstTables};

}  // namespace

Done migrateEvents(SqliteDatabase& database) {
  const Outcome<std::int64_t> found = database.oneInteger("PRAGMA user_version");
  if (!found) return found.failure();
  const auto newest = static_cast<std::int64_t>(kSteps.size());
  if (*found < 0 || *found > newest) {
    return Failure{"was written by a newer version of this program"};
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
