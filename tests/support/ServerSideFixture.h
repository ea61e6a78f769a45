// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/facade/ServerSide.h"
#include "jx/platform/JXManualClock.h"
#include "tests/support/CheckInterval.h"
#include "tests/support/JXFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {

/// A log message. Compares and prints like a pair of level and message.
struct LogLine {
  int level = 0;
  std::string message;

  friend bool operator==(const LogLine& a, const LogLine& b) {
    return a.level == b.level && a.message == b.message;
  }
  friend std::ostream& operator<<(std::ostream& out, const LogLine& line) {
    return out << line.level << " \"" << line.message << "\"";
  }
};

/// A request that was passed to the core.
struct Request {
  const void* object = nullptr;
  JXJsonObject userInfo;
  JXString url;
  std::string text;   ///< the body as it is posted
  JXJsonObject body;  ///< the parsed body; null when it is not JSON
};

/// A test that starts the library with a fake platform, a manual clock and a captured log. It is a
/// dry run unless the test sets `configuration.dryRun` to false and a storage folder.
///
/// A test changes `platform` and `configuration`, then calls `make` or `start` once per process.
class ServerSideFixture : public ::testing::Test {
 protected:
  static constexpr std::int64_t kStartMs = 1'700'000'000'000;

  ServerSideFixture();
  ~ServerSideFixture() override;

  /// Applies the configuration and starts recording; for tests that use a singleton directly.
  void start();
  /// Calls `start` the first time and creates a ServerSide for site 1234 with the key "key".
  std::shared_ptr<ServerSide> make(std::int32_t defaultBehaviour = 0);
  /// Also records notifications on another center.
  void record(const std::shared_ptr<JXNotificationCenter>& center);

  /// Returns a folder for the library's files. It is removed when the process exits, after the
  /// library has stopped, which would otherwise create it again. Call it before `start`.
  static const TemporaryFolder& storage();
  /// Makes the library store requests and send them to a port without a server.
  void queueForReal();

  /// Executes an event that has only a name; returns the resulting request.
  Request execute(ServerSide& serverSide, const char* name = "quiz");
  /// Returns the string of a predefined variable.
  static JXString variable(std::string_view key);

  std::vector<LogLine> lines() const;
  /// Returns the messages up to this level.
  std::vector<LogLine> linesUpTo(int level) const;
  std::size_t count(const LogLine& line) const;
  void forgetLines();
  /// Returns the notifications with this name, in order.
  std::vector<JXNotification> posted(std::string_view name) const;
  const std::vector<Request>& requests() const { return requests_; }
  /// Returns the object under nested keys; null when there is none.
  static JXJsonObject inside(const JXJsonObject& object, const std::vector<std::string>& keys);
  /// Returns the lifecycle block of a request.
  static JXJsonObject lifecycle(const Request& request);
  static JXJsonObject context(const Request& request);

  std::shared_ptr<JXFakePlatform> platform = std::make_shared<JXFakePlatform>();
  std::shared_ptr<JXManualClock> clock = std::make_shared<JXManualClock>(kStartMs);
  JXCoreConfiguration configuration;

 private:
  // Co-owned by the sink, because the transfer thread may still log while a test ends.
  struct Log {
    std::mutex mutex;
    std::vector<LogLine> lines;
  };

  void keep(const JXNotification& notification);

  const CheckInterval interval_{CheckInterval::kNone};
  bool isStarted_ = false;
  std::shared_ptr<Log> log_ = std::make_shared<Log>();
  std::vector<std::shared_ptr<JXNotificationCenter>> centers_;
  std::mutex keeping_;  // several threads may execute events
  std::vector<JXNotification> posted_;
  std::vector<Request> requests_;
};

}  // namespace jx::test
