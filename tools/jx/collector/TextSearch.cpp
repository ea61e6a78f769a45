// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/TextSearch.h"

#include <algorithm>

namespace jx {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view bytesOf(sqlite3_value* value) {
  const void* const data = sqlite3_value_blob(value);
  const int size = sqlite3_value_bytes(value);
  if (data == nullptr || size <= 0) return {};
  return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

}  // namespace

Done TextSearch::install(SqliteDatabase& database) {
  return database.defineFunction("contains_text", 2, &TextSearch::call, this);
}

bool TextSearch::contains(std::string_view body, std::string_view text) {
  const auto found = std::search(body.begin(), body.end(), text.begin(), text.end(),
                                 [](char a, char b) { return lower(a) == lower(b); });
  return text.empty() || found != body.end();
}

void TextSearch::call(sqlite3_context* context, int, sqlite3_value** values) {
  auto& search = *static_cast<TextSearch*>(sqlite3_user_data(context));
  const std::string_view body = bytesOf(values[0]);
  if (body.size() > search.left_) {
    sqlite3_result_error(context, "the search exceeds 1 GiB; narrow it by name or session", -1);
    return;
  }
  search.left_ -= body.size();
  sqlite3_result_int(context, contains(body, bytesOf(values[1])) ? 1 : 0);
}

}  // namespace jx
