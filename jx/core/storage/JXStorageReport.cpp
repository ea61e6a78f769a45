// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStorageReport.h"

#include <iterator>
#include <map>
#include <set>

#include "jx/core/JXLogger.h"
#include "jx/core/storage/JXFile.h"

namespace jx {
namespace {

// The causes that were logged, and the storages of the process that have not recovered since.
struct ReportedCauses {
  std::mutex mutex;
  // By folder and errno value.
  std::map<std::pair<std::string, int>, std::set<const JXStorageReport*>> causes;
};

// Never destroyed: the transfer thread may report a failure while the process exits.
ReportedCauses& reported() {
  static ReportedCauses* const instance = new ReportedCauses();
  return *instance;
}

}  // namespace

void JXStorageReport::failed(const char* action, int error) {
  ++failures_;
  {
    const std::lock_guard<std::mutex> lock(reported().mutex);
    auto& failing = reported().causes[{folder_, error}];
    const bool isNew = failing.empty();
    failing.insert(this);
    if (!isNew) return;
  }
  const std::string reason = describeStorageError(error);
  messages_.push_back({subject_ + ": cannot " + action + ": " + reason, 3});
}

void JXStorageReport::recovered() {
  const std::lock_guard<std::mutex> lock(reported().mutex);
  auto& causes = reported().causes;
  for (auto cause = causes.begin(); cause != causes.end();) {
    cause->second.erase(this);
    cause = cause->second.empty() ? causes.erase(cause) : std::next(cause);
  }
}

void JXStorageReport::damaged(const std::string& path) {
  ++damagedFiles_;
  messages_.push_back(
      {subject_ + ": damaged data in " + path + "; quarantined in a .damaged-* file", 2});
}

void JXStorageReport::log(const std::vector<Message>& messages) {
  for (const Message& message : messages) {
    JXLogger::sharedInstance().logMessage_withLevel(message.text, message.level);
  }
}

}  // namespace jx
