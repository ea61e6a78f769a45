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

/// A prepared statement. Reset it with `SqliteUse` before using it again. Not thread-safe.
class SqliteStatement {
 public:
  SqliteStatement() = default;

  /// Binds a value to a parameter; numbering starts at 1. Strings must stay alive until the
  /// statement is reset. nullopt binds NULL.
  void bind(int parameter, std::int64_t value);
  void bind(int parameter, const std::optional<std::int64_t>& value);
  void bind(int parameter, const std::optional<std::string>& text);
  void bindText(int parameter, std::string_view text);
  void bindBytes(int parameter, std::string_view bytes);

  /// Returns SQLITE_ROW, SQLITE_DONE or an error code.
  int step();
  void reset();

  /// Reads a column of the current row; numbering starts at 0.
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

/// Resets a statement at the end of a scope, which releases its locks and its pointers to bound
/// values.
class SqliteUse {
 public:
  explicit SqliteUse(SqliteStatement& statement) : statement_(statement) {}
  ~SqliteUse() { statement_.reset(); }
  SqliteUse(const SqliteUse&) = delete;
  SqliteUse& operator=(const SqliteUse&) = delete;

 private:
  SqliteStatement& statement_;
};

/// One connection to a database file. Not thread-safe: callers must serialise access.
class SqliteDatabase {
 public:
  /// Opens or creates the file.
  static Result<SqliteDatabase> open(const std::filesystem::path& file);

  /// Runs statements that return no rows.
  Done execute(const std::string& sql);
  Result<SqliteStatement> prepare(std::string_view sql);
  /// Runs a statement that returns one integer.
  Result<std::int64_t> oneInteger(std::string_view sql);
  std::int64_t lastInsertedRow() const { return sqlite3_last_insert_rowid(handle_.get()); }
  /// Registers an SQL function on this connection. Its result must depend only on its arguments and
  /// on `data`, which must outlive the connection.
  Done defineFunction(const char* name, int arguments,
                      void (*function)(sqlite3_context*, int, sqlite3_value**), void* data);
  /// Returns the error of the last failed operation, prefixed with `action`.
  Error lastFailure(const std::string& action) const;

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace jx
