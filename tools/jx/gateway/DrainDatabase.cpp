// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/DrainDatabase.h"

#include <openssl/sha.h>

#include <array>
#include <utility>

namespace jx {
namespace {

// Half of a SHA-256 digest: IDs have any length, and keys of 16 bytes keep the index small.
constexpr std::size_t kKeyBytes = 16;

constexpr const char* kSchema = R"(
PRAGMA locking_mode = EXCLUSIVE;
PRAGMA journal_mode = WAL;
PRAGMA synchronous = FULL;
CREATE TABLE IF NOT EXISTS position (
  id INTEGER PRIMARY KEY CHECK (id = 1),
  stream TEXT NOT NULL, created INTEGER NOT NULL, sequence INTEGER NOT NULL,
  stored_at INTEGER NOT NULL, file TEXT NOT NULL, length INTEGER NOT NULL,
  opened INTEGER NOT NULL, finishing INTEGER NOT NULL);
CREATE TABLE IF NOT EXISTS event_id (
  key BLOB PRIMARY KEY, stored_at INTEGER NOT NULL) WITHOUT ROWID;
CREATE INDEX IF NOT EXISTS event_id_time ON event_id (stored_at);
)";

// At most this many IDs a batch, so that the first batch after a pause is not slow. A batch adds
// fewer.
constexpr const char* kRemove = R"(
DELETE FROM event_id WHERE key IN
  (SELECT key FROM event_id WHERE stored_at < ? ORDER BY stored_at LIMIT 8192))";

constexpr const char* kCannotStore = "cannot write the database of the folder";

}  // namespace

Result<DrainDatabase> DrainDatabase::open(const std::filesystem::path& file) {
  Result<SqliteDatabase> database = SqliteDatabase::open(file);
  if (!database) return database.error();
  DrainDatabase opened(std::move(*database));
  const Done prepared = opened.prepare();
  if (!prepared) return Error{"cannot open " + file.string() + ": " + prepared.error().text};
  return opened;
}

Done DrainDatabase::prepare() {
  if (const Done created = database_.execute(kSchema); !created) return created;
  const std::pair<SqliteStatement*, const char*> statements[] = {
      // Returns a row only if the ID is new.
      {&add_, "INSERT INTO event_id VALUES (?, ?) ON CONFLICT DO NOTHING RETURNING 1"},
      {&remove_, kRemove},
      {&save_, "INSERT OR REPLACE INTO position VALUES (1, ?, ?, ?, ?, ?, ?, ?, ?)"},
  };
  for (const auto& [statement, sql] : statements) {
    Result<SqliteStatement> prepared = database_.prepare(sql);
    if (!prepared) return prepared.error();
    *statement = std::move(*prepared);
  }
  return done();
}

Result<std::optional<DrainPosition>> DrainDatabase::position() {
  Result<SqliteStatement> select = database_.prepare(
      "SELECT stream, created, sequence, stored_at, file, length, opened, finishing FROM position");
  if (!select) return select.error();
  const int status = select->step();
  if (status == SQLITE_DONE) return std::optional<DrainPosition>();
  if (status != SQLITE_ROW) return database_.lastFailure("cannot read the position");
  DrainPosition position;
  position.stream = select->bytes(0);
  position.created = select->integer(1);
  position.sequence = select->integer(2);
  position.storedAtMs = select->integer(3);
  position.file = select->bytes(4);
  position.length = select->integer(5);
  position.openedMs = select->integer(6);
  position.isFinishing = select->integer(7) != 0;
  return std::optional<DrainPosition>(std::move(position));
}

Done DrainDatabase::begin() { return database_.execute("BEGIN IMMEDIATE"); }

Done DrainDatabase::commit() { return database_.execute("COMMIT"); }

void DrainDatabase::rollBack() {
  // Fails when the error that was the reason has rolled back already.
  (void)database_.execute("ROLLBACK");
}

Result<bool> DrainDatabase::addEventId(std::string_view eventId, std::int64_t storedAtMs) {
  std::array<unsigned char, SHA256_DIGEST_LENGTH> digest{};
  SHA256(reinterpret_cast<const unsigned char*>(eventId.data()), eventId.size(), digest.data());
  const SqliteUse use(add_);
  add_.bindBytes(1, {reinterpret_cast<const char*>(digest.data()), kKeyBytes});
  add_.bind(2, storedAtMs);
  const int status = add_.step();
  if (status != SQLITE_ROW && status != SQLITE_DONE) return database_.lastFailure(kCannotStore);
  return status == SQLITE_ROW;
}

Done DrainDatabase::removeEventIds(std::int64_t beforeMs) {
  const SqliteUse use(remove_);
  remove_.bind(1, beforeMs);
  return run(remove_);
}

Done DrainDatabase::savePosition(const DrainPosition& position) {
  const SqliteUse use(save_);
  save_.bindText(1, position.stream);
  save_.bind(2, position.created);
  save_.bind(3, position.sequence);
  save_.bind(4, position.storedAtMs);
  save_.bindText(5, position.file);
  save_.bind(6, position.length);
  save_.bind(7, position.openedMs);
  save_.bind(8, std::int64_t{position.isFinishing});
  return run(save_);
}

Done DrainDatabase::run(SqliteStatement& statement) {
  return statement.step() == SQLITE_DONE ? done() : database_.lastFailure(kCannotStore);
}

}  // namespace jx
