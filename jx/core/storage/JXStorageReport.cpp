// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStorageReport.h"

#include <iterator>
#include <mutex>
#include <set>
#include <system_error>

#include "jx/core/JXLogger.h"

namespace jx {
namespace {

// The causes that were told and have not gone since, for all storages of the process.
struct ToldCauses {
  std::mutex mutex;
  std::set<std::pair<std::string, int>> causes;  // folder and errno value
};

// Never destroyed: the transfer thread may report while the process ends.
ToldCauses& told() {
  static ToldCauses* const instance = new ToldCauses();
  return *instance;
}

}  // namespace

void JXStorageReport::failed(const char* action, int error) {
  ++failures_;
  {
    const std::lock_guard<std::mutex> lock(told().mutex);
    if (!told().causes.emplace(folder_, error).second) return;
  }
  const std::string reason = std::error_code(error, std::generic_category()).message();
  lines_.push_back({subject_ + ": cannot " + action + ": " + reason, 3});
}

void JXStorageReport::recovered() {
  const std::lock_guard<std::mutex> lock(told().mutex);
  auto& causes = told().causes;
  for (auto cause = causes.begin(); cause != causes.end();) {
    cause = cause->first == folder_ ? causes.erase(cause) : std::next(cause);
  }
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
