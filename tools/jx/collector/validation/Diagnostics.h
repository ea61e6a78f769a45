// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

/// One thing that the collector has to say about an event.
struct Diagnostic {
  enum class Level { Error, Warning };

  Level level = Level::Error;
  std::string_view code;  ///< "missing_field": for programs; a constant
  std::string key;        ///< where: a path into the body, empty for the whole
  std::string text;       ///< what is wrong, for a person
};

/// What was said about one event. All of it is counted, the first `kKept` of each level are kept:
/// whoever sends a million wrong keys gets a long answer, not an endless one.
class Diagnostics {
 public:
  static constexpr std::int64_t kKept = 100;

  void error(std::string_view code, std::string key, std::string text) {
    if (++errors_ > kKept) return;
    kept_.push_back({Diagnostic::Level::Error, code, std::move(key), std::move(text)});
  }
  void note(std::string_view code, std::string key, std::string text) {
    if (++notes_ > kKept) return;
    kept_.push_back({Diagnostic::Level::Warning, code, std::move(key), std::move(text)});
  }

  std::int64_t errors() const { return errors_; }
  std::int64_t notes() const { return notes_; }
  const std::vector<Diagnostic>& kept() const { return kept_; }

 private:
  std::int64_t errors_ = 0;
  std::int64_t notes_ = 0;
  std::vector<Diagnostic> kept_;
};

}  // namespace jx
