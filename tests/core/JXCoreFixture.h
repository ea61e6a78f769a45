// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXLogger.h"
#include "jx/platform/JXManualClock.h"
#include "tests/support/JXFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {

/// Sets the core's configuration before the core starts: a fake platform, a manual clock, a
/// temporary folder and a captured log. The core starts once per process, so each test needs its
/// own process.
class JXCoreFixture : public testing::Test {
 public:
  /// Returns the log messages so far, each as "LEVEL MESSAGE".
  std::vector<std::string> logLines() const {
    const std::lock_guard<std::mutex> lock(log_->mutex);
    return log_->lines;
  }
  long countLogLines(const std::string& begin) const {
    const std::vector<std::string> lines = logLines();
    return std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
      return line.compare(0, begin.size(), begin) == 0;
    });
  }

 protected:
  JXCoreFixture() {
    configuration_.platform = platform_;
    configuration_.clock = clock_;
    configuration_.storageFolder = folder().path("state");
    configuration_.collectionHost = "http://127.0.0.1";
    configuration_.dryRun = true;
    configuration_.logLevel = 6;
    configuration_.logSink = [log = log_](int level, std::string_view message) {
      const std::lock_guard<std::mutex> lock(log->mutex);
      log->lines.push_back(std::to_string(level) + " " + std::string(message));
    };
  }
  void SetUp() override {
    prepare();
    ASSERT_TRUE(JXCoreConfiguration::set(configuration_))
        << "the core has already started: run each test in its own process";
  }
  /// Hook for changes to the configuration before it is set.
  virtual void prepare() {}

  struct Log {
    std::mutex mutex;
    std::vector<std::string> lines;
  };

  // Created before the core starts, so that it is destroyed after the transfer thread has ended,
  // which would otherwise write to a removed folder.
  static TemporaryFolder& folder() {
    static TemporaryFolder folder;
    return folder;
  }

  std::shared_ptr<JXFakePlatform> platform_ = std::make_shared<JXFakePlatform>();
  std::shared_ptr<JXManualClock> clock_ = std::make_shared<JXManualClock>(1'700'000'000'123);
  std::shared_ptr<Log> log_ = std::make_shared<Log>();
  JXCoreConfiguration configuration_;
};

}  // namespace jx::test
