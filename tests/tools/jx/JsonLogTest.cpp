// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/JsonLog.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include "tools/jx/gateway/UtcTime.h"

namespace jx {
namespace {

using Level = JsonLog::Level;

class JsonLogTest : public testing::Test {
 protected:
  std::string content() const {
    std::rewind(file_.get());
    std::string text;
    for (int c = std::fgetc(file_.get()); c != EOF; c = std::fgetc(file_.get()))
      text += static_cast<char>(c);
    return text;
  }
  // Replaces the time, which differs in each run.
  std::string contentWithoutTime() const {
    const std::regex time(R"("time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z")");
    return std::regex_replace(content(), time, "T");
  }

  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  const std::unique_ptr<std::FILE, Close> file_{std::tmpfile()};
};

TEST_F(JsonLogTest, WritesOneObjectPerLine) {
  JsonLog log(file_.get(), Level::Info);
  log.write(Level::Info, "started", {{"port", 8443}, {"name", std::string("a\"b\n")}});
  log.write(Level::Warning, "slow", {{"waiting", 0}});
  log.write(Level::Error, "failed", {{"reason", "x\xFF"}});
  EXPECT_EQ(contentWithoutTime(),
            "{T,\"level\":\"info\",\"event\":\"started\",\"port\":8443,\"name\":\"a\\\"b\\n\"}\n"
            "{T,\"level\":\"warning\",\"event\":\"slow\",\"waiting\":0}\n"
            "{T,\"level\":\"error\",\"event\":\"failed\",\"reason\":\"x\xEF\xBF\xBD\"}\n");
}

TEST_F(JsonLogTest, OmitsLinesAboveItsLevel) {
  JsonLog log(file_.get(), Level::Error);
  log.write(Level::Info, "started");
  log.write(Level::Warning, "slow");
  log.write(Level::Error, "failed");
  EXPECT_EQ(contentWithoutTime(), "{T,\"level\":\"error\",\"event\":\"failed\"}\n");
}

TEST_F(JsonLogTest, DoesNotMixTheLinesOfThreads) {
  JsonLog log(file_.get(), Level::Info);
  const std::string text(5'000, 'x');
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int line = 0; line < 50; ++line)
        log.write(Level::Info, "line", {{"text", text}});
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  std::string expected;
  for (int i = 0; i < 200; ++i)
    expected += "{T,\"level\":\"info\",\"event\":\"line\",\"text\":\"" + text + "\"}\n";
  EXPECT_EQ(contentWithoutTime(), expected);
}

TEST(UtcTime, WritesMillisecondsAndLeapDays) {
  EXPECT_EQ(utcTime(0), "1970-01-01T00:00:00.000Z");
  EXPECT_EQ(utcTime(1'767'225'600'123), "2026-01-01T00:00:00.123Z");
  EXPECT_EQ(utcTime(1'709'251'199'999), "2024-02-29T23:59:59.999Z");
  EXPECT_EQ(utcTime(-1), "1969-12-31T23:59:59.999Z");
}

}  // namespace
}  // namespace jx
