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

/// Sets the core's configuration before anything of it starts: a fake platform, a clock that is
/// moved by hand, a folder of the test's own, and a log that is kept. The core starts once in a
/// process, so a test needs a process of its own.
class JXCoreFixture : public testing::Test {
 public:
  /// The log so far, each line as "LEVEL TEXT".
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
        << "the core has started: run each test in a process of its own";
  }
  /// For changes to the configuration before it is set.
  virtual void prepare() {}

  struct Log {
    std::mutex mutex;
    std::vector<std::string> lines;
  };

  // Made before the core starts, so that it ends after the transfer thread, which would otherwise
  // write into a folder that is gone already.
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
