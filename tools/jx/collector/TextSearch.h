// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// Looks for a text in stored bodies: the SQL function contains_text(body, text), in which A to Z
/// are like a to z. One search looks at a bounded number of bytes and then fails. Belongs to one
/// connection and outlives it.
class TextSearch {
 public:
  static constexpr std::size_t kMaxBytes = std::size_t{1024} * 1024 * 1024;

  Done install(SqliteDatabase& database);
  /// Before each search.
  void begin() { left_ = kMaxBytes; }

  static bool contains(std::string_view body, std::string_view text);

 private:
  static void call(sqlite3_context* context, int count, sqlite3_value** values);

  std::size_t left_ = kMaxBytes;
};

}  // namespace jx
