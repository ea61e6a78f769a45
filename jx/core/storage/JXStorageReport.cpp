// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStorageReport.h"

#include <system_error>

#include "jx/core/JXLogger.h"

namespace jx {

void JXStorageReport::failed(const char* action, int error) {
  ++failures_;
  if (!told_.emplace(action, error).second) return;
  const std::string reason = std::error_code(error, std::generic_category()).message();
  lines_.push_back({subject_ + ": cannot " + action + ": " + reason, 3});
}

void JXStorageReport::damaged(const std::string& path) {
  ++damagedFiles_;
  lines_.push_back({subject_ + ": damaged part of " + path + " set aside", 2});
}

void JXStorageReport::log(const std::vector<Line>& lines) {
  for (const Line& line : lines) {
    JXLogger::sharedInstance().logMessage_withLevel(line.text, line.level);
  }
}

}  // namespace jx
