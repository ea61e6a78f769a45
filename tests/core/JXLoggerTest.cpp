// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLogger.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXLogDeferral.h"

namespace jx {
namespace {

class JXLoggerTest : public testing::Test {
 protected:
  ~JXLoggerTest() override {
    logger_.setSink({});
    logger_.setMaxLevel(3);
  }
  void captureMessages() {
    logger_.setSink([this](int level, std::string_view message) {
      messages_.push_back(std::to_string(level) + " " + std::string(message));
    });
  }

  JXLogger& logger_ = JXLogger::sharedInstance();
  std::vector<std::string> messages_;
};

TEST_F(JXLoggerTest, PrintsLevelsUpToThreeByDefault) {
  captureMessages();
  for (int level = 1; level <= 6; ++level)
    logger_.logMessage_withLevel("message", level);
  EXPECT_EQ(messages_, (std::vector<std::string>{"1 message", "2 message", "3 message"}));
  EXPECT_TRUE(logger_.printsLevel(3));
  EXPECT_FALSE(logger_.printsLevel(4));
}

TEST_F(JXLoggerTest, PrintsUpToTheConfiguredLevel) {
  captureMessages();
  logger_.setMaxLevel(6);
  logger_.logMessage_withLevel("detail", 6);
  logger_.setMaxLevel(2);
  logger_.logMessage_withLevel("failure", 3);
  EXPECT_EQ(messages_, std::vector<std::string>{"6 detail"});
}

TEST_F(JXLoggerTest, PrintsNothingAtLevelZero) {
  captureMessages();
  logger_.setMaxLevel(0);
  for (int level = -1; level <= 6; ++level) {
    logger_.logMessage_withLevel("message", level);
    EXPECT_FALSE(logger_.printsLevel(level)) << level;
  }
  EXPECT_TRUE(messages_.empty());
}

TEST_F(JXLoggerTest, DiscardsExceptionsOfASink) {
  logger_.setSink([](int, std::string_view) { throw std::runtime_error("full"); });
  logger_.logMessage_withLevel("lost", 2);
  logger_.setSink([](int, std::string_view) { throw 1; });
  logger_.logMessage_withLevel("lost", 2);
  captureMessages();
  logger_.logMessage_withLevel("kept", 2);
  EXPECT_EQ(messages_, std::vector<std::string>{"2 kept"});
}

TEST_F(JXLoggerTest, DiscardsMessagesLoggedByASink) {
  logger_.setSink([this](int, std::string_view message) {
    messages_.emplace_back(message);
    logger_.logMessage_withLevel("from inside", 2);
  });
  logger_.logMessage_withLevel("one", 2);
  logger_.logMessage_withLevel("two", 2);
  EXPECT_EQ(messages_, (std::vector<std::string>{"one", "two"}));
}

TEST_F(JXLoggerTest, AllowsASinkToLogWhileItIsDestroyed) {
  struct Ending {
    ~Ending() { JXLogger::sharedInstance().logMessage_withLevel("sink destroyed", 2); }
  };
  auto ending = std::make_shared<Ending>();
  logger_.setSink([ending](int, std::string_view) {});
  ending.reset();
  captureMessages();
  EXPECT_EQ(messages_, std::vector<std::string>{"2 sink destroyed"});
}

TEST_F(JXLoggerTest, CallsTheSinkOnTheLoggingThread) {
  std::atomic<std::size_t> calls{0};
  logger_.setSink([&calls](int, std::string_view) { ++calls; });
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([this] {
      for (int i = 0; i < 250; ++i)
        logger_.logMessage_withLevel("message", 2);
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(calls, 1'000U);

  std::thread::id where;
  logger_.setSink([&where](int, std::string_view) { where = std::this_thread::get_id(); });
  logger_.logMessage_withLevel("message", 2);
  EXPECT_EQ(where, std::this_thread::get_id());
}

TEST_F(JXLoggerTest, CallsTheSinkWithoutALock) {
  // The first call waits inside the sink for the second one, on another thread.
  std::promise<void> second;
  std::atomic<int> calls{0};
  logger_.setSink([&](int, std::string_view) {
    if (calls++ == 0) {
      second.get_future().wait();
    } else {
      second.set_value();
    }
  });
  std::thread waiting([this] { logger_.logMessage_withLevel("first", 2); });
  while (calls == 0)
    std::this_thread::yield();
  logger_.logMessage_withLevel("second", 2);
  waiting.join();
  EXPECT_EQ(calls, 2);
}

TEST_F(JXLoggerTest, DefersMessagesUntilTheOutermostDeferralEnds) {
  captureMessages();
  {
    const JXLogDeferral outer;
    logger_.logMessage_withLevel("first", 2);
    {
      const JXLogDeferral inner;
      logger_.logMessage_withLevel("second", 3);
    }
    EXPECT_TRUE(messages_.empty());
    std::thread([this] { logger_.logMessage_withLevel("other thread", 2); }).join();
    EXPECT_EQ(messages_, std::vector<std::string>{"2 other thread"});
  }
  EXPECT_EQ(messages_, (std::vector<std::string>{"2 other thread", "2 first", "3 second"}));
}

TEST_F(JXLoggerTest, WritesToStandardErrorWithoutASink) {
  testing::internal::CaptureStderr();
  logger_.logMessage_withLevel("Unable to open the queue", 2);
  logger_.logMessage_withLevel("not printed", 4);
  const std::string printed = testing::internal::GetCapturedStderr();
  EXPECT_NE(printed.find("Unable to open the queue"), std::string::npos) << printed;
  EXPECT_EQ(printed.find("not printed"), std::string::npos) << printed;
  EXPECT_EQ(printed.back(), '\n');
}

TEST_F(JXLoggerTest, WritesTheWholeMessageToStandardError) {
  testing::internal::CaptureStderr();
  logger_.logMessage_withLevel(std::string_view("before %s %n\0after", 19), 2);
  const std::string printed = testing::internal::GetCapturedStderr();
  EXPECT_NE(printed.find("before %s %n"), std::string::npos) << printed;
  EXPECT_NE(printed.find("after"), std::string::npos) << printed;
}

}  // namespace
}  // namespace jx
