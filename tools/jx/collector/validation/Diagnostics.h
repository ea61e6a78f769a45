// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

/// One validation error or warning of an event.
struct Diagnostic {
  enum class Level { Error, Warning };

  Level level = Level::Error;
  std::string_view code;  ///< machine-readable, such as "missing_field"; a constant
  std::string key;        ///< path into the body; empty for the whole body
  std::string text;       ///< human-readable message
};

/// The errors and warnings of one event. Counts all of them and keeps the first `kKept` of each
/// level, so that an event with a million invalid keys cannot produce an unbounded response.
class Diagnostics {
 public:
  static constexpr std::int64_t kKept = 100;

  void error(std::string_view code, std::string key, std::string text) {
    if (++errors_ > kKept) return;
    kept_.push_back({Diagnostic::Level::Error, code, std::move(key), std::move(text)});
  }
  void warning(std::string_view code, std::string key, std::string text) {
    if (++warnings_ > kKept) return;
    kept_.push_back({Diagnostic::Level::Warning, code, std::move(key), std::move(text)});
  }

  std::int64_t errors() const { return errors_; }
  std::int64_t warnings() const { return warnings_; }
  const std::vector<Diagnostic>& kept() const { return kept_; }

 private:
  std::int64_t errors_ = 0;
  std::int64_t warnings_ = 0;
  std::vector<Diagnostic> kept_;
};

}  // namespace jx
