// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jx/core/JXLogger.h"

namespace jx::test {

/// Collects values from other threads and lets a test wait for a number of them.
template <class Value>
class JXCollected {
 public:
  void add(Value value) {
    const std::lock_guard<std::mutex> lock(mutex_);
    values_.push_back(std::move(value));
    changed_.notify_all();
  }
  std::vector<Value> all() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return values_;
  }
  /// Waits until there are `count` values; returns false after 20 seconds.
  bool waitFor(std::size_t count) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(20),
                             [&] { return values_.size() >= count; });
  }

 private:
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Value> values_;
};

/// Captures log messages up to level 5 during its lifetime, each as "LEVEL message".
class JXLogCapture {
 public:
  JXLogCapture() {
    JXLogger::sharedInstance().setMaxLevel(5);
    JXLogger::sharedInstance().setSink([this](int level, std::string_view message) {
      lines_.add(std::to_string(level) + " " + std::string(message));
    });
  }
  ~JXLogCapture() { JXLogger::sharedInstance().setSink(nullptr); }
  JXLogCapture(const JXLogCapture&) = delete;
  JXLogCapture& operator=(const JXLogCapture&) = delete;

  /// Returns the messages that contain `part`.
  std::vector<std::string> linesWith(const std::string& part) const {
    std::vector<std::string> found;
    for (const std::string& line : lines_.all()) {
      if (line.find(part) != std::string::npos) found.push_back(line);
    }
    return found;
  }

 private:
  JXCollected<std::string> lines_;
};

/// Returns the body of an event with the given ID.
inline std::string bodyOf(const std::string& eventId) {
  return R"({"context":{"event_id":")" + eventId + R"("}})";
}

}  // namespace jx::test
