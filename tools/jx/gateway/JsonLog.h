// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <concepts>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <mutex>
#include <string_view>
#include <variant>

namespace jx {

/// Writes log lines as JSON objects:
/// {"time":"2026-01-01T00:00:00.000Z","level":"info","event":"started",...}. Thread-safe.
class JsonLog {
 public:
  enum class Level { Error, Warning, Info };

  struct Field {
    Field(std::string_view name, std::string_view text) : key(name), value(text) {}
    Field(std::string_view name, const char* text) : key(name), value(std::string_view(text)) {}
    template <std::integral Number>
    Field(std::string_view name, Number number)
        : key(name), value(static_cast<std::int64_t>(number)) {}

    std::string_view key;
    std::variant<std::string_view, std::int64_t> value;
  };

  /// `file` must outlive the log. Lines above `level` are not written.
  JsonLog(std::FILE* file, Level level) : file_(file), level_(level) {}

  /// Writes a line with one call of the operating system, so that the lines of several processes
  /// do not mix. Bytes that are not UTF-8 become U+FFFD.
  void write(Level level, std::string_view event, std::initializer_list<Field> fields = {});

 private:
  std::FILE* const file_;
  const Level level_;
  std::mutex mutex_;
};

}  // namespace jx
