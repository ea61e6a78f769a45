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

  JXNotificationCenter::Handler hear(const std::string& mark) {
    return [this, mark](const JXNotification&) { heard_ += mark; };
  }
  void post(const char* name) { center_.postNotification({name}); }

  JXNotificationCenter center_;
  std::string heard_;
  std::vector<std::string> log_;
  const int a_ = 0;
  const int b_ = 0;
};

TEST_F(JXNotificationCenterTest, CallsThoseWhoObserveTheNameInTheOrderOfTheirRegistration) {
  center_.addObserver(&b_, "x", hear("1"));
  center_.addObserver(&a_, "y", hear("2"));
  center_.addObserver(&a_, "x", hear("3"));
  center_.addObserver(&b_, nullptr, hear("4"));
  post("x");
  EXPECT_EQ(heard_, "134");
  post("y");
  EXPECT_EQ(heard_, "13424");
  post("X");
  EXPECT_EQ(heard_, "134244");
}

TEST_F(JXNotificationCenterTest, HandsTheNotificationOnAsItIs) {
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

TEST_F(JXNotificationCenterTest, AnEmptyNameIsANameAndAnAbsentOneIsHeardByWhoHearsAll) {
  center_.addObserver(&a_, "", hear("1"));
  center_.addObserver(&b_, nullptr, hear("2"));
  center_.postNotification({""});
  EXPECT_EQ(heard_, "12");
  center_.postNotification({});
  EXPECT_EQ(heard_, "122");
}

TEST_F(JXNotificationCenterTest, OneObserverMayRegisterSeveralTimes) {
  center_.addObserver(&a_, "x", hear("1"));
  center_.addObserver(&a_, "x", hear("1"));
  center_.addObserver(&a_, "y", hear("2"));
  post("x");
  EXPECT_EQ(heard_, "11");
  center_.removeObserver_name(&a_, "x");
  post("x");
  post("y");
  EXPECT_EQ(heard_, "112");
  center_.removeObserver(&a_);
  post("y");
  EXPECT_EQ(heard_, "112");
}

TEST_F(JXNotificationCenterTest, RemovingOneObserverLeavesTheOthers) {
  center_.addObserver(&a_, "x", hear("a"));
  center_.addObserver(&b_, "x", hear("b"));
  center_.removeObserver(&a_);
  center_.removeObserver(&heard_);
  post("x");
  EXPECT_EQ(heard_, "b");
}

TEST_F(JXNotificationCenterTest, WhoIsRemovedDuringAPostIsNotBegunAnyMore) {
  center_.addObserver(&a_, "x", [&](const JXNotification&) {
    heard_ += "1";
    center_.removeObserver(&b_);
    center_.removeObserver(&a_);
  });
  center_.addObserver(&b_, "x", hear("2"));
  center_.addObserver(&heard_, "x", hear("3"));
  post("x");
  EXPECT_EQ(heard_, "13");
  post("x");
  EXPECT_EQ(heard_, "133");
}

TEST_F(JXNotificationCenterTest, WhoRegistersDuringAPostHearsTheNext) {
  center_.addObserver(&a_, "x", [&](const JXNotification&) {
    heard_ += "1";
    if (heard_ == "1") center_.addObserver(&b_, "x", hear("2"));
  });
  post("x");
  EXPECT_EQ(heard_, "1");
  post("x");
  EXPECT_EQ(heard_, "112");
}

TEST_F(JXNotificationCenterTest, AHandlerMayPost) {
  center_.addObserver(&a_, "x", [&](const JXNotification&) {
    heard_ += "(";
    post("y");
    heard_ += ")";
  });
  center_.addObserver(&b_, "y", hear("y"));
  center_.addObserver(&b_, "x", hear("x"));
  post("x");
  EXPECT_EQ(heard_, "(y)x");
}

TEST_F(JXNotificationCenterTest, WhatAHandlerThrowsIsLoggedAndReachesNobody) {
  center_.addObserver(&a_, "x", [](const JXNotification&) { throw std::runtime_error("broken"); });
  center_.addObserver(&a_, "x", [](const JXNotification&) { throw 1; });
  center_.addObserver(&a_, "x", nullptr);
  center_.addObserver(&b_, "x", hear("2"));
  post("x");
  EXPECT_EQ(heard_, "2");
  ASSERT_EQ(log_.size(), 3U);
  for (const std::string& line : log_)
    EXPECT_EQ(line.substr(0, 2), "3 ") << line;
  EXPECT_NE(log_[0].find("broken"), std::string::npos);
}

TEST_F(JXNotificationCenterTest, HandlersAreCalledOnTheThreadThatPosts) {
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

TEST_F(JXNotificationCenterTest, ManyThreadsMayRegisterPostAndRemove) {
  std::atomic<int> heardByFirst{0};
  std::atomic<int> heardOwn{0};
  center_.addObserver(&a_, "x", [&](const JXNotification&) { ++heardByFirst; });
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&] {
      const int self = 0;
      const auto thread = std::this_thread::get_id();
      for (int i = 0; i < 200; ++i) {
        center_.addObserver(&self, "x", [&heardOwn, thread](const JXNotification&) {
          if (std::this_thread::get_id() == thread) ++heardOwn;
        });
        post("x");
        center_.removeObserver(&self);
        post("x");
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(heardByFirst, 1'600);
  EXPECT_EQ(heardOwn, 800);
}

TEST(JXDefaultNotificationCenter, IsOneForTheProcess) {
  EXPECT_NE(JXNotificationCenter::defaultCenter(), nullptr);
  EXPECT_EQ(JXNotificationCenter::defaultCenter(), JXNotificationCenter::defaultCenter());
}

}  // namespace
}  // namespace jx
