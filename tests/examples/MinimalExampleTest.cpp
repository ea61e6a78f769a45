// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/support/ChildProcess.h"
#include "tests/support/CollectorProgram.h"
#include "tests/support/ReservedPort.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

constexpr std::chrono::seconds kPatience{60};

std::string readFile(const std::string& path) {
  std::ifstream file(std::string(JX_SOURCE_DIR) + "/" + path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(MinimalExample, DeliversItsEventOverHttps) {
  const TemporaryFolder folder;
  const CollectorProgram collector(JX_PROGRAM, folder.path());
  const auto result =
      ChildProcess::run(JX_EXAMPLE_MINIMAL,
                        {collector.address(), collector.caFile(), folder.path("state")}, kPatience);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  ASSERT_EQ(collector.eventCount(), 1u);
  const JXJsonObject body = collector.body(0);
  EXPECT_EQ(body.get("event_name").string(), JXString("quiz_answered"));
  EXPECT_EQ(body.get("page_name").string(), JXString("quiz"));
  EXPECT_EQ(body.get("answer").string(), JXString("B"));
}

TEST(MinimalExample, DeliversUnsentEventsInTheNextRun) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const std::string address = "https://127.0.0.1:" + std::to_string(port.number());
  const auto offline = ChildProcess::run(
      JX_EXAMPLE_MINIMAL, {address, folder.path("none"), folder.path("state")}, kPatience);
  EXPECT_EQ(offline.status, 1);
  const CollectorProgram collector(JX_PROGRAM, folder.path(), port.number());
  const auto online = ChildProcess::run(
      JX_EXAMPLE_MINIMAL, {address, collector.caFile(), folder.path("state")}, kPatience);
  EXPECT_EQ(online.status, 0);
  EXPECT_EQ(collector.eventCount(), 2u);
}

TEST(MinimalExample, MatchesTheCodeInTheReadme) {
  const std::string example = readFile("examples/minimal/main.cpp");
  ASSERT_FALSE(example.empty());
  EXPECT_NE(readFile("README.md").find("\n```cpp\n" + example + "```\n"), std::string::npos);
}

}  // namespace
}  // namespace jx::test
