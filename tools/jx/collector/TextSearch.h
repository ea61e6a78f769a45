// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// Searches stored bodies for a substring: the SQL function contains_text(body, text). ASCII
/// letters match in either case. A search fails after reading `kMaxBytes`. Belongs to one
/// connection and must outlive it.
class TextSearch {
 public:
  static constexpr std::size_t kMaxBytes = std::size_t{1024} * 1024 * 1024;

  /// Registers the SQL function.
  Done install(SqliteDatabase& database);
  /// Resets the byte limit. Call before each search.
  void begin() { left_ = kMaxBytes; }

  static bool contains(std::string_view body, std::string_view text);

 private:
  static void call(sqlite3_context* context, int count, sqlite3_value** values);

  std::size_t left_ = kMaxBytes;
};

}  // namespace jx
