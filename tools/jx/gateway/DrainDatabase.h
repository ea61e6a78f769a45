// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// How far a stream is written to the files of a folder.
struct DrainPosition {
  std::string stream;
  std::int64_t created = 0;     ///< when the stream was created; a stream created again differs
  std::int64_t sequence = 0;    ///< of the last message that is written or dropped
  std::int64_t storedAtMs = 0;  ///< of the same message

  std::string file;           ///< name of the current file without ".part"; "" without one
  std::int64_t length = 0;    ///< of the committed part of the current file
  std::int64_t openedMs = 0;  ///< when the current file was created
  bool isFinishing = false;   ///< the current file gets its final name, or has it already
};

/// Stores the position and the IDs of recent events. Changes are made in transactions, which are
/// durable when `commit` returns. Locks the file. Not thread-safe.
class DrainDatabase {
 public:
  /// Opens or creates the file.
  static Result<DrainDatabase> open(const std::filesystem::path& file);

  /// Returns nullopt before the first `savePosition`.
  Result<std::optional<DrainPosition>> position();

  Done begin();
  Done commit();
  void rollBack();

  /// Returns false if the ID is stored already.
  Result<bool> addEventId(std::string_view eventId, std::int64_t storedAtMs);
  /// Removes IDs of events that were stored before this time.
  Done removeEventIds(std::int64_t beforeMs);
  Done savePosition(const DrainPosition& position);

 private:
  explicit DrainDatabase(SqliteDatabase database) : database_(std::move(database)) {}
  Done prepare();
  Done run(SqliteStatement& statement);

  SqliteDatabase database_;
  SqliteStatement add_;
  SqliteStatement remove_;
  SqliteStatement save_;
};

}  // namespace jx
