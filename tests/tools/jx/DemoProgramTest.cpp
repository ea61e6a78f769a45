// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/HttpsClient.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/jx/ProgramRun.h"
#include "tools/jx/demo/DemoScript.h"
#include "tools/jx/replay/ScriptLine.h"

namespace jx {
namespace {

using test::TemporaryFolder;

// Counted manually in the script.
constexpr int kSent = 45;

TEST(DemoScript, ContainsOnlyValidLines) {
  std::string_view script = demoScript();
  int events = 0;
  while (!script.empty()) {
    const std::size_t end = script.find('\n');
    const Result<ScriptCommand> command = readScriptLine(script.substr(0, end));
    ASSERT_TRUE(command) << script.substr(0, end) << ": " << command.error().text;
    events += std::holds_alternative<ScriptEvent>(*command) ? 1 : 0;
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
  }
  EXPECT_EQ(events, kSent + 1);
}

TEST(DemoScript, ContainsTwoInvalidEvents) {
  std::string_view script = demoScript();
  std::vector<std::string> diagnostics;
  while (!script.empty()) {
    const std::size_t end = script.find('\n');
    const Result<ScriptCommand> command = readScriptLine(script.substr(0, end));
    ASSERT_TRUE(command) << script.substr(0, end);
    const auto* const line = std::get_if<ScriptEvent>(&*command);
    if (line != nullptr && !line->event->verifyEvent()) {
      diagnostics.push_back(line->event->name().toStdString() + ": " +
                            line->event->firstFailedCondition().toStdString());
    }
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
  }
  EXPECT_THAT(diagnostics,
              testing::ElementsAre("purchase: type must be a non-empty string",
                                   "video_content_quarter_reached: cursorPosition must be set"));
}

TEST(DemoProgram, OncePrintsEveryEventAndRemovesItsFiles) {
  const TemporaryFolder folder;
  const auto result =
      ChildProcess::run(JX_PROGRAM, {"demo", "--once"}, kPatience, {{"TMPDIR", folder.path()}});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(contains(result.output, "\n45 events sent, 45 arrived\n")) << result.output;
  EXPECT_TRUE(contains(result.output, "\n1 more not sent: ")) << result.output;
  EXPECT_TRUE(contains(result.output, "  video_pause ")) << result.output;
  EXPECT_TRUE(contains(result.output, "stars=4.5")) << result.output;
  EXPECT_FALSE(contains(result.output, "\033")) << "colours are used only on a terminal";
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(DemoProgram, RunsTwice) {
  const TemporaryFolder folder;
  for (int run = 0; run < 2; ++run) {
    EXPECT_EQ(
        ChildProcess::run(JX_PROGRAM, {"demo", "--once"}, kPatience, {{"TMPDIR", folder.path()}})
            .status,
        0);
  }
}

TEST(DemoProgram, KeepsWebUiOpenUntilInterruptedWithoutOnce) {
  const TemporaryFolder folder;
  ChildProcess demo(JX_PROGRAM, {"demo"}, {{"TMPDIR", folder.path()}});
  ASSERT_TRUE(demo.waitForOutput("(press Ctrl-C to stop)", kPatience));
  const std::size_t begin = demo.output().find("http://localhost:");
  ASSERT_NE(begin, std::string::npos) << demo.output();
  const std::string page = demo.output().substr(begin, demo.output().find(' ', begin) - begin);
  EXPECT_EQ(HttpsClient().get(page).status, 200) << page;
  const auto response = HttpsClient().get(page + "api/events?name=video_pause");
  EXPECT_EQ(response.status, 200) << page;
  EXPECT_TRUE(contains(response.body, "The Last Lighthouse"));
  demo.signal(SIGINT);
  const auto result = demo.wait(kPatience);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(DemoProgram, HelpListsItsOption) {
  const auto result = runJx({"demo", "--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(contains(result.output, "--once"));
}

}  // namespace
}  // namespace jx
