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
#include "tests/support/JXFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {

/// A line of the log. Compares and prints like the pair that it is.
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

/// A request that was handed to the core.
struct Request {
  const void* object = nullptr;
  JXJsonObject userInfo;
  JXString url;
  std::string text;   ///< the body as it would be posted
  JXJsonObject body;  ///< the same, read; absent when it is no JSON
};

/// A test that starts the library with a fake platform, a manual clock and a log that is kept. It
/// runs dry unless the test sets `configuration.dryRun` to false and names a storage folder.
///
/// A test changes `platform` and `configuration` as it likes, then calls `make` or `start`, once a
/// process.
class ServerSideFixture : public ::testing::Test {
 protected:
  static constexpr std::int64_t kStartMs = 1'700'000'000'000;

  ServerSideFixture();
  ~ServerSideFixture() override;

  /// Puts the configuration in force and begins to record; for tests that ask a singleton directly.
  void start();
  /// `start`, the first time, and a new ServerSide for site 1234 with the key "key".
  std::shared_ptr<ServerSide> make(std::int32_t defaultBehaviour = 0);
  /// Also records what is posted on another centre.
  void record(const std::shared_ptr<JXNotificationCenter>& center);

  /// A folder for the library's files that goes when the process ends, after the library has
  /// stopped: one that goes earlier would be made again. To be called before `start`.
  static const TemporaryFolder& storage();
  /// Has the library store and try to send, to a port where nobody listens.
  void queueForReal();

  /// An event by its name alone, executed; returns the request that it became.
  Request execute(ServerSide& serverSide, const char* name = "quiz");
  /// A predefined variable's text.
  static JXString variable(std::string_view key);

  std::vector<LogLine> lines() const;
  /// Those of up to this level.
  std::vector<LogLine> linesUpTo(int level) const;
  std::size_t count(const LogLine& line) const;
  void forgetLines();
  /// What was posted under the name, in order.
  std::vector<JXNotification> posted(std::string_view name) const;
  const std::vector<Request>& requests() const { return requests_; }
  /// The object under keys, one inside the other; absent when there is none.
  static JXJsonObject inside(const JXJsonObject& object, const std::vector<std::string>& keys);
  /// The lifecycle block of a request.
  static JXJsonObject lifecycle(const Request& request);
  static JXJsonObject context(const Request& request);

  std::shared_ptr<JXFakePlatform> platform = std::make_shared<JXFakePlatform>();
  std::shared_ptr<JXManualClock> clock = std::make_shared<JXManualClock>(kStartMs);
  JXCoreConfiguration configuration;

 private:
  // Outlives the fixture in the sink: the library's own thread may still log while a test ends.
  struct Log {
    std::mutex mutex;
    std::vector<LogLine> lines;
  };

  void keep(const JXNotification& notification);

  bool isStarted_ = false;
  std::shared_ptr<Log> log_ = std::make_shared<Log>();
  std::vector<std::shared_ptr<JXNotificationCenter>> centers_;
  std::vector<JXNotification> posted_;
  std::vector<Request> requests_;
};

}  // namespace jx::test
