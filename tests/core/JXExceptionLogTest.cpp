// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXExceptionLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXLogger.h"

namespace jx {
namespace {

TEST(ExceptionLog, LogsTheCauseOfTheHandledException) {
  std::vector<std::pair<int, std::string>> messages;
  JXLogger::sharedInstance().setSink(
      [&](int level, std::string_view message) { messages.emplace_back(level, message); });
  const auto handle = [](const auto& exception, std::string_view consequence) {
    try {
      throw exception;
    } catch (...) {
      logException("Reading failed", consequence);
    }
  };
  handle(std::runtime_error("disk error"), "");
  handle(std::runtime_error("disk error"), "nothing is read");
  handle(0, "nothing is read");
  JXLogger::sharedInstance().setSink({});
  EXPECT_THAT(messages,
              testing::ElementsAre(std::pair(3, "Reading failed: disk error"),
                                   std::pair(3, "Reading failed: disk error; nothing is read"),
                                   std::pair(3, "Reading failed")));
}

}  // namespace
}  // namespace jx
