// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/Revalidation.h"

#include <string>

namespace jx {
namespace {

Done validateAll(SqliteDatabase& database) {
  Result<SqliteStatement> select = database.prepare("SELECT id, query, body FROM requests");
  if (!select) return select.error();
  Result<SqliteStatement> update = database.prepare(
      "UPDATE events SET name = ?3, class = ?4, good = ?5, errors = ?6, notes = ?7, session = ?8, "
      "video_session = ?9, event_timestamp = ?10, site = ?11, token = ?12, problem = ?13, "
      "line = ?14, bytes = ?2 WHERE id = ?1");
  if (!update) return update.error();
  int status = SQLITE_DONE;
  while ((status = select->step()) == SQLITE_ROW) {
    const std::string body = select->bytes(2);
    const ValidationResult validation = ValidationResult::of(select->bytes(1), body);
    const SqliteUse use(*update);
    update->bind(1, select->integer(0));
    update->bind(2, static_cast<std::int64_t>(body.size()));
    bindValidationResult(*update, 3, validation);
    if (update->step() != SQLITE_DONE) return database.lastFailure("cannot revalidate events");
  }
  return status == SQLITE_DONE ? done() : database.lastFailure("cannot revalidate events");
}

}  // namespace

Done revalidateWhereNeeded(SqliteDatabase& database) {
  const Result<std::int64_t> rules =
      database.oneInteger("SELECT value FROM counters WHERE name = 'rules'");
  if (!rules) return rules.error();
  if (*rules == ValidationResult::rulesVersion()) return done();
  if (const Done began = database.execute("BEGIN IMMEDIATE"); !began) return began;
  const Done validated = validateAll(database);
  if (!validated) {
    static_cast<void>(database.execute("ROLLBACK"));
    return validated;
  }
  return database.execute(
      "UPDATE counters SET value = " + std::to_string(ValidationResult::rulesVersion()) +
      " WHERE name = 'rules'; COMMIT");
}

void bindValidationResult(SqliteStatement& statement, int first,
                          const ValidationResult& validation) {
  const EventMetadata& metadata = validation.metadata;
  statement.bind(first, metadata.name);
  if (!validation.className.empty()) statement.bindText(first + 1, validation.className);
  statement.bind(first + 2, std::int64_t{validation.isValid() ? 1 : 0});
  statement.bind(first + 3, validation.diagnostics.errors());
  statement.bind(first + 4, validation.diagnostics.warnings());
  statement.bind(first + 5, metadata.session);
  statement.bind(first + 6, metadata.videoSession);
  statement.bind(first + 7, metadata.eventTimestamp);
  statement.bind(first + 8, metadata.site);
  statement.bind(first + 9, metadata.token);
  statement.bind(first + 10, metadata.problem);
  statement.bindText(first + 11, validation.line);
}

}  // namespace jx
