// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "jx/core/json/JXJsonReader.h"
#include "tests/support/ChildProcess.h"

namespace jx {

/// Timeout for every run that terminates, on a busy machine and with a sanitizer.
inline constexpr std::chrono::seconds kPatience{100};

inline ChildProcess::Result runJx(const std::vector<std::string>& arguments,
                                  const std::string& input = {}) {
  return ChildProcess::runWithInput(JX_PROGRAM, arguments, input, kPatience);
}

inline std::ptrdiff_t linesOf(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

inline bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// Returns a script with events named "n0", "n1" and so on.
inline std::string customEvents(int count) {
  std::string script;
  for (int i = 0; i < count; ++i) {
    script += R"({"do":"event","class":"JXCustomEvent","name":"n)" + std::to_string(i) + "\"}\n";
  }
  return script;
}

/// Returns the bodies written by `jx replay --print`. Each body ends with a brace at the start of a
/// line.
inline std::vector<std::string> bodiesIn(const std::string& output) {
  std::vector<std::string> bodies;
  for (std::size_t at = 0; at < output.size();) {
    const std::size_t end = output.find("\n}\n", at);
    if (end == std::string::npos) break;
    bodies.push_back(output.substr(at, end + 2 - at));
    at = end + 3;
  }
  return bodies;
}

inline JXJsonObject parsedBody(const std::string& body) {
  return JXJsonReader::read(body).value.object();
}

}  // namespace jx
