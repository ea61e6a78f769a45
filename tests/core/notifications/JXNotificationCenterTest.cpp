// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXNotificationCenter.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXLogger.h"

namespace jx {
namespace {

class JXNotificationCenterTest : public testing::Test {
 protected:
  JXNotificationCenterTest() {
    JXLogger::sharedInstance().setSink([this](int level, std::string_view message) {
      log_.push_back(std::to_string(level) + " " + std::string(message));
    });
  }
  ~JXNotificationCenterTest() override { JXLogger::sharedInstance().setSink({}); }

  JXNotificationCenter::Handler record(const std::string& mark) {
    return [this, mark](const JXNotification&) { received_ += mark; };
  }
  void post(const char* name) { center_.postNotification({name}); }

  JXNotificationCenter center_;
  std::string received_;
  std::vector<std::string> log_;
  const int a_ = 0;
  const int b_ = 0;
};

TEST_F(JXNotificationCenterTest, CallsObserversOfTheNameInRegistrationOrder) {
  center_.addObserver(&b_, "x", record("1"));
  center_.addObserver(&a_, "y", record("2"));
  center_.addObserver(&a_, "x", record("3"));
  center_.addObserver(&b_, nullptr, record("4"));
  post("x");
  EXPECT_EQ(received_, "134");
  post("y");
  EXPECT_EQ(received_, "13424");
  post("X");
  EXPECT_EQ(received_, "134244");
}

TEST_F(JXNotificationCenterTest, DeliversTheNotificationUnchanged) {
  JXJsonObject userInfo;
  JXNotification got;
  center_.addObserver(&a_, "x", [&](const JXNotification& n) { got = n; });
  center_.postNotification({"x", &b_, userInfo});
  EXPECT_EQ(got.name, JXString("x"));
  EXPECT_EQ(got.object, &b_);
  EXPECT_TRUE(got.userInfo.isSameAs(userInfo));
  post("x");
  EXPECT_EQ(got.object, nullptr);
  EXPECT_FALSE(got.userInfo.isPresent());
}

TEST_F(JXNotificationCenterTest, DistinguishesTheEmptyNameFromANullName) {
  center_.addObserver(&a_, "", record("1"));
  center_.addObserver(&b_, nullptr, record("2"));
  center_.postNotification({""});
  EXPECT_EQ(received_, "12");
  center_.postNotification({});
  EXPECT_EQ(received_, "122");
}

TEST_F(JXNotificationCenterTest, AllowsAnObserverToRegisterSeveralTimes) {
  center_.addObserver(&a_, "x", record("1"));
  center_.addObserver(&a_, "x", record("1"));
  center_.addObserver(&a_, "y", record("2"));
  post("x");
  EXPECT_EQ(received_, "11");
  center_.removeObserver_name(&a_, "x");
  post("x");
  post("y");
  EXPECT_EQ(received_, "112");
  center_.removeObserver(&a_);
  post("y");
  EXPECT_EQ(received_, "112");
}

TEST_F(JXNotificationCenterTest, RemovesOneObserverAndKeepsTheOthers) {
  center_.addObserver(&a_, "x", record("a"));
  center_.addObserver(&b_, "x", record("b"));
  center_.removeObserver(&a_);
  center_.removeObserver(&received_);
  post("x");
  EXPECT_EQ(received_, "b");
}

TEST_F(JXNotificationCenterTest, DoesNotCallAnObserverRemovedDuringThePost) {
  center_.addObserver(&a_, "x", [&](const JXNotification&) {
    received_ += "1";
    center_.removeObserver(&b_);
    center_.removeObserver(&a_);
  });
  center_.addObserver(&b_, "x", record("2"));
  center_.addObserver(&received_, "x", record("3"));
  post("x");
  EXPECT_EQ(received_, "13");
  post("x");
  EXPECT_EQ(received_, "133");
}

TEST_F(JXNotificationCenterTest, CallsAnObserverAddedDuringAPostFromTheNextPost) {
  center_.addObserver(&a_, "x", [&](const JXNotification&) {
    received_ += "1";
    if (received_ == "1") center_.addObserver(&b_, "x", record("2"));
  });
  post("x");
  EXPECT_EQ(received_, "1");
  post("x");
  EXPECT_EQ(received_, "112");
}

TEST_F(JXNotificationCenterTest, AllowsAHandlerToPost) {
  center_.addObserver(&a_, "x", [&](const JXNotification&) {
    received_ += "(";
    post("y");
    received_ += ")";
  });
  center_.addObserver(&b_, "y", record("y"));
  center_.addObserver(&b_, "x", record("x"));
  post("x");
  EXPECT_EQ(received_, "(y)x");
}

TEST_F(JXNotificationCenterTest, LogsExceptionsOfHandlersAndDoesNotPropagateThem) {
  center_.addObserver(&a_, "x", [](const JXNotification&) { throw std::runtime_error("broken"); });
  center_.addObserver(&a_, "x", [](const JXNotification&) { throw 1; });
  center_.addObserver(&a_, "x", nullptr);
  center_.addObserver(&b_, "x", record("2"));
  post("x");
  EXPECT_EQ(received_, "2");
  ASSERT_EQ(log_.size(), 3U);
  for (const std::string& line : log_)
    EXPECT_EQ(line.substr(0, 2), "3 ") << line;
  EXPECT_NE(log_[0].find("broken"), std::string::npos);
}

TEST_F(JXNotificationCenterTest, CallsHandlersOnThePostingThread) {
  std::thread::id where;
  center_.addObserver(&a_, "x", [&](const JXNotification&) { where = std::this_thread::get_id(); });
  post("x");
  EXPECT_EQ(where, std::this_thread::get_id());
  std::thread other([&] {
    post("x");
    EXPECT_EQ(where, std::this_thread::get_id());
  });
  other.join();
}

TEST_F(JXNotificationCenterTest, AllowsManyThreadsToRegisterPostAndRemove) {
  std::atomic<int> receivedByFirst{0};
  std::atomic<int> receivedOwn{0};
  center_.addObserver(&a_, "x", [&](const JXNotification&) { ++receivedByFirst; });
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&] {
      const int self = 0;
      const auto thread = std::this_thread::get_id();
      for (int i = 0; i < 200; ++i) {
        center_.addObserver(&self, "x", [&receivedOwn, thread](const JXNotification&) {
          if (std::this_thread::get_id() == thread) ++receivedOwn;
        });
        post("x");
        center_.removeObserver(&self);
        post("x");
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(receivedByFirst, 1'600);
  EXPECT_EQ(receivedOwn, 800);
}

TEST(JXDefaultNotificationCenter, IsTheSameForTheWholeProcess) {
  EXPECT_NE(JXNotificationCenter::defaultCenter(), nullptr);
  EXPECT_EQ(JXNotificationCenter::defaultCenter(), JXNotificationCenter::defaultCenter());
}

}  // namespace
}  // namespace jx
