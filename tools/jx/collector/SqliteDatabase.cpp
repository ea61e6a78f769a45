// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {
namespace {

constexpr int kBusyTimeoutMs = 5000;

}  // namespace

void SqliteStatement::bind(int parameter, std::int64_t value) {
  sqlite3_bind_int64(handle_.get(), parameter, value);
}

void SqliteStatement::bind(int parameter, const std::optional<std::int64_t>& value) {
  if (value) bind(parameter, *value);
}

void SqliteStatement::bind(int parameter, const std::optional<std::string>& text) {
  if (text) bindText(parameter, *text);
}

void SqliteStatement::bindText(int parameter, std::string_view text) {
  sqlite3_bind_text64(handle_.get(), parameter, text.data() ? text.data() : "", text.size(),
                      nullptr, SQLITE_UTF8);
}

void SqliteStatement::bindBytes(int parameter, std::string_view bytes) {
  sqlite3_bind_blob64(handle_.get(), parameter, bytes.data() ? bytes.data() : "", bytes.size(),
                      nullptr);
}

int SqliteStatement::step() { return sqlite3_step(handle_.get()); }

void SqliteStatement::reset() {
  sqlite3_reset(handle_.get());
  sqlite3_clear_bindings(handle_.get());
}

std::int64_t SqliteStatement::integer(int column) const {
  return sqlite3_column_int64(handle_.get(), column);
}

std::optional<std::int64_t> SqliteStatement::optionalInteger(int column) const {
  if (sqlite3_column_type(handle_.get(), column) == SQLITE_NULL) return std::nullopt;
  return integer(column);
}

std::string SqliteStatement::bytes(int column) const {
  const void* const data = sqlite3_column_blob(handle_.get(), column);
  const int size = sqlite3_column_bytes(handle_.get(), column);
  if (data == nullptr || size <= 0) return {};
  return std::string(static_cast<const char*>(data), static_cast<std::size_t>(size));
}

std::optional<std::string> SqliteStatement::optionalText(int column) const {
  if (sqlite3_column_type(handle_.get(), column) == SQLITE_NULL) return std::nullopt;
  return bytes(column);
}

Result<SqliteDatabase> SqliteDatabase::open(const std::filesystem::path& file) {
  sqlite3* raw = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
  const int status = sqlite3_open_v2(file.c_str(), &raw, flags, nullptr);
  SqliteDatabase database;
  database.handle_.reset(raw);
  if (status != SQLITE_OK) return database.lastFailure("cannot open " + file.string());
  sqlite3_busy_timeout(raw, kBusyTimeoutMs);
  return database;
}

Done SqliteDatabase::execute(const std::string& sql) {
  if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) {
    return done();
  }
  return lastFailure("database error");
}

Result<SqliteStatement> SqliteDatabase::prepare(std::string_view sql) {
  sqlite3_stmt* raw = nullptr;
  const int status = sqlite3_prepare_v3(handle_.get(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
  SqliteStatement statement;
  statement.handle_.reset(raw);
  if (status != SQLITE_OK) return lastFailure("database error");
  return statement;
}

Result<std::int64_t> SqliteDatabase::oneInteger(std::string_view sql) {
  Result<SqliteStatement> statement = prepare(sql);
  if (!statement) return statement.error();
  if (statement->step() != SQLITE_ROW) return lastFailure("cannot read events");
  return statement->integer(0);
}

Done SqliteDatabase::defineFunction(const char* name, int arguments,
                                    void (*function)(sqlite3_context*, int, sqlite3_value**),
                                    void* data) {
  const int status = sqlite3_create_function_v2(handle_.get(), name, arguments, SQLITE_UTF8, data,
                                                function, nullptr, nullptr, nullptr);
  return status == SQLITE_OK ? done() : lastFailure("database error");
}

Error SqliteDatabase::lastFailure(const std::string& action) const {
  const char* const reason = handle_ ? sqlite3_errmsg(handle_.get()) : "out of memory";
  return Error{action + ": " + reason};
}

}  // namespace jx
