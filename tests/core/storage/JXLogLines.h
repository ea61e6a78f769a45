// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/core/JXLogger.h"

namespace jx {

/// Collects the log messages of one test instead of printing them.
class LogLines {
 public:
  LogLines() {
    JXLogger::sharedInstance().setSink([this](int level, std::string_view message) {
      messages_.push_back(std::to_string(level) + " " + std::string(message));
    });
  }
  ~LogLines() { JXLogger::sharedInstance().setSink({}); }
  LogLines(const LogLines&) = delete;
  LogLines& operator=(const LogLines&) = delete;

  const std::vector<std::string>& all() const { return messages_; }
  std::size_t with(const std::string& part) const {
    std::size_t count = 0;
    for (const std::string& line : messages_)
      count += line.find(part) != std::string::npos;
    return count;
  }

 private:
  std::vector<std::string> messages_;
};

}  // namespace jx
