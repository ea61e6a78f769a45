// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"

namespace jx {

/// A prepared statement. Reset it by a `SqliteUse` before it is used again. Not thread-safe.
class SqliteStatement {
 public:
  SqliteStatement() = default;

  /// Parameters count from 1. The text must stay alive until the statement is reset; absent is
  /// NULL.
  void bind(int parameter, std::int64_t value);
  void bind(int parameter, const std::optional<std::int64_t>& value);
  void bind(int parameter, const std::optional<std::string>& text);
  void bindText(int parameter, std::string_view text);
  void bindBytes(int parameter, std::string_view bytes);

  /// SQLITE_ROW, SQLITE_DONE or an error code.
  int step();
  void reset();

  /// Columns count from 0.
  std::int64_t integer(int column) const;
  std::optional<std::int64_t> optionalInteger(int column) const;
  std::string bytes(int column) const;
  std::optional<std::string> optionalText(int column) const;

 private:
  friend class SqliteDatabase;
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

/// Resets a statement at the end of a block, so that it holds no lock and no pointer after it.
class SqliteUse {
 public:
  explicit SqliteUse(SqliteStatement& statement) : statement_(statement) {}
  ~SqliteUse() { statement_.reset(); }
  SqliteUse(const SqliteUse&) = delete;
  SqliteUse& operator=(const SqliteUse&) = delete;

 private:
  SqliteStatement& statement_;
};

/// One connection to a database file. Its owner makes sure that one thread uses it at a time.
class SqliteDatabase {
 public:
  static Result<SqliteDatabase> open(const std::filesystem::path& file);

  /// Runs statements that give no rows.
  Done execute(const std::string& sql);
  Result<SqliteStatement> prepare(std::string_view sql);
  /// Runs a statement that gives one integer.
  Result<std::int64_t> oneInteger(std::string_view sql);
  std::int64_t lastInsertedRow() const { return sqlite3_last_insert_rowid(handle_.get()); }
  /// Makes a function known to the statements of this connection; its answer depends on nothing
  /// but its arguments and `data`, which outlives the connection.
  Done defineFunction(const char* name, int arguments,
                      void (*function)(sqlite3_context*, int, sqlite3_value**), void* data);
  /// Why the last operation failed.
  Error lastFailure(const std::string& action) const;

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace jx
