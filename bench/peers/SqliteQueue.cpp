// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Events in SQLite, each inserted by a transaction of its own on the caller's thread.

#include <sqlite3.h>

#include <stdexcept>

#include "bench/peers/BatchingQueue.h"

namespace jx::bench {
namespace {

class SqliteStore final : public EventStore {
 public:
  SqliteStore(const std::string& path, bool wal) {
    if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK) fail();
    run(wal ? "PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=DELETE");
    run(wal ? "PRAGMA synchronous=NORMAL" : "PRAGMA synchronous=FULL");
    run("CREATE TABLE IF NOT EXISTS events (id INTEGER PRIMARY KEY, body TEXT NOT NULL)");
    insert_ = prepare("INSERT INTO events (body) VALUES (?)");
    select_ = prepare("SELECT id, body FROM events ORDER BY id LIMIT ?");
    delete_ = prepare("DELETE FROM events WHERE id <= ?");
    count_ = prepare("SELECT count(*) FROM events");
  }
  ~SqliteStore() override {
    for (sqlite3_stmt* const statement : {insert_, select_, delete_, count_})
      sqlite3_finalize(statement);
    sqlite3_close(database_);
  }
  SqliteStore(const SqliteStore&) = delete;
  SqliteStore& operator=(const SqliteStore&) = delete;

  std::uint64_t size() override {
    step(count_);
    const auto size = static_cast<std::uint64_t>(sqlite3_column_int64(count_, 0));
    sqlite3_reset(count_);
    return size;
  }
  void add(std::string_view body) override {
    sqlite3_bind_text(insert_, 1, body.data(), static_cast<int>(body.size()), SQLITE_STATIC);
    step(insert_);
    sqlite3_reset(insert_);
  }
  std::size_t appendOldest(std::size_t most, std::string& array) override {
    std::size_t count = 0;
    sqlite3_bind_int64(select_, 1, static_cast<sqlite3_int64>(most));
    for (; step(select_); ++count) {
      if (count != 0) array += ',';
      last_ = sqlite3_column_int64(select_, 0);
      array.append(reinterpret_cast<const char*>(sqlite3_column_text(select_, 1)),
                   static_cast<std::size_t>(sqlite3_column_bytes(select_, 1)));
    }
    sqlite3_reset(select_);
    return count;
  }
  void removeAppended() override {
    sqlite3_bind_int64(delete_, 1, last_);
    step(delete_);
    sqlite3_reset(delete_);
  }

 private:
  [[noreturn]] void fail() const { throw std::runtime_error(sqlite3_errmsg(database_)); }
  void run(const char* sql) const {
    if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
  }
  sqlite3_stmt* prepare(const char* sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) != SQLITE_OK) fail();
    return statement;
  }
  // Returns whether there is a row.
  bool step(sqlite3_stmt* statement) const {
    const int result = sqlite3_step(statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE) fail();
    return result == SQLITE_ROW;
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  sqlite3_stmt* select_ = nullptr;
  sqlite3_stmt* delete_ = nullptr;
  sqlite3_stmt* count_ = nullptr;
  sqlite3_int64 last_ = 0;
};

}  // namespace

std::unique_ptr<Queue> createQueue(const QueueOptions& options) {
  return std::make_unique<BatchingQueue>(
      options, std::make_unique<SqliteStore>(options.folder + "/events.sqlite", options.wal));
}

}  // namespace jx::bench
