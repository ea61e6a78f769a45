// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStorageReport.h"

#include <iterator>
#include <map>
#include <new>
#include <set>

#include "jx/core/JXLogger.h"
#include "jx/core/storage/JXFile.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

// The causes that were logged, and the storages of the process that have not recovered since.
struct ReportedCauses {
  std::mutex mutex;
  // By folder and errno value.
  std::map<std::pair<std::string, int>, std::set<const JXStorageReport*>> causes;
};

// Never destroyed: the transfer thread may report a failure while the process exits. Not allocated,
// because destructors use it.
ReportedCauses& reported() {
  alignas(ReportedCauses) static unsigned char memory[sizeof(ReportedCauses)];
  static ReportedCauses* const instance = new (memory) ReportedCauses();
  return *instance;
}

}  // namespace

void JXStorageReport::failed(const char* action, int error) noexcept {
  ++failures_;
  try {
    const std::lock_guard<std::mutex> lock(reported().mutex);
    auto& failing = reported().causes[{folder_, error}];
    if (failing.empty()) {
      const std::string reason = describeStorageError(error);
      messages_.push_back({concat({subject_, ": cannot ", action, ": ", reason}), 3});
    }
    failing.insert(this);
  } catch (...) {
    // Out of memory: the next failure is logged.
  }
}

void JXStorageReport::outOfMemory() noexcept {
  ranOut_ = true;
  if (!std::exchange(isOutOfMemory_, true)) owesMessage_ = true;
}

std::vector<JXStorageReport::Message> JXStorageReport::takeMessages() noexcept {
  try {
    if (owesMessage_) {
      messages_.push_back(
          {concat({subject_, ": cannot queue an event: out of memory; event dropped"}), 2});
      owesMessage_ = false;
    }
  } catch (...) {
    // The next call creates the message.
  }
  return std::exchange(messages_, {});
}

void JXStorageReport::recovered() noexcept {
  if (!std::exchange(ranOut_, false)) isOutOfMemory_ = false;
  const std::lock_guard<std::mutex> lock(reported().mutex);
  auto& causes = reported().causes;
  for (auto cause = causes.begin(); cause != causes.end();) {
    cause->second.erase(this);
    cause = cause->second.empty() ? causes.erase(cause) : std::next(cause);
  }
}

void JXStorageReport::quarantined(const std::string& path,
                                  const JXQuarantined& quarantined) noexcept {
  if (quarantined.copied) ++damagedFiles_;
  deletedFiles_ += quarantined.deleted;
  try {
    if (quarantined.copied) {
      messages_.push_back(
          {concat({subject_, ": damaged data in ", path, "; quarantined in a .damaged-* file"}),
           2});
    }
    if (quarantined.deleted != 0 && !hasLoggedDeletion_) {
      messages_.push_back(
          {concat({subject_, ": old quarantined files deleted: limit of number, size or age"}), 3});
      hasLoggedDeletion_ = true;
    }
  } catch (...) {
    // Out of memory: it is only counted.
  }
}

void JXStorageReport::log(const std::vector<Message>& messages) {
  for (const Message& message : messages) {
    JXLogger::sharedInstance().logMessage_withLevel(message.text, message.level);
  }
}

}  // namespace jx
