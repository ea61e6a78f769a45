// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <regex>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/jx/ProgramRun.h"

// Tests of `jx replay` without a network: printed bodies, bad lines, wrong usage.

namespace jx {
namespace {

using test::TemporaryFolder;

constexpr const char* kNothingSent = "executed 0, delivered 0, held 0, rejected 0, dropped 0";

// UUIDs are the only random values.
std::string withoutUuids(const std::string& text) {
  static const std::regex uuid("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
  return std::regex_replace(text, uuid, "UUID");
}

JXJsonObject lifecycleOf(const JXJsonObject& body) {
  return body.get("context").object().get("device").object().get("lifecycle").object();
}

TEST(ReplayPrint, PrintsNumbersExactlyAsInTheScript) {
  const auto result = runJx(
      {"replay", "--print", "-"},
      R"({"do":"event","class":"JXCustomEvent","name":"one","parameters":{"deep":{"list":[1,{"x":null}],"t":true}}})"
      "\n"
      R"({"do":"event","class":"JXCustomEvent","name":"two","fields":{"pageName":"home"},"parameters":{"n":123456789012345678.901234567890}})"
      "\n");
  EXPECT_EQ(result.status, 0) << result.errors;
  const auto bodies = bodiesIn(result.output);
  ASSERT_EQ(bodies.size(), 2u) << result.output;
  EXPECT_EQ(bodies[0] + "\n" + bodies[1] + "\n", result.output);
  const JXJsonObject one = parsedBody(bodies[0]);
  EXPECT_EQ(one.get("event_name").string(), JXString("one"));
  const JXJsonArray list = one.get("deep").object().get("list").array();
  EXPECT_EQ(list.at(0).numberString(), JXString("1"));
  EXPECT_EQ(list.at(1).object().get("x").kind(), JXJsonValue::Kind::Null);
  const JXJsonObject two = parsedBody(bodies[1]);
  EXPECT_TRUE(contains(bodies[1], "\"n\": 123456789012345678.901234567890,"));
  EXPECT_EQ(two.get("page_name").string(), JXString("home"));
  EXPECT_TRUE(lifecycleOf(two).isPresent());
  EXPECT_NE(one.get("context").object().get("event_id").string(),
            two.get("context").object().get("event_id").string());
}

TEST(ReplayPrint, WritesOnlyBodiesToStandardOutput) {
  const auto result = runJx({"replay", "--print", "--verify", "-"}, customEvents(1) + "\nx\n");
  EXPECT_EQ(bodiesIn(result.output).size(), 1u);
  EXPECT_EQ(result.output.back(), '\n');
  EXPECT_EQ(result.output.front(), '{');
  EXPECT_TRUE(contains(result.errors, "executed 1, delivered 0,"));
  EXPECT_TRUE(contains(result.errors, "line 1: JXCustomEvent \"n0\" is valid\n"));
  EXPECT_TRUE(contains(result.errors, "line 3: invalid JSON"));
}

TEST(ReplayPrint, WritesBodyImmediatelyEvenInTheBackground) {
  ChildProcess replay(JX_PROGRAM, {"replay", "--print"}, {}, ChildProcess::Input::Pipe);
  ASSERT_TRUE(replay.writeInput("{\"do\":\"background\"}\n" + customEvents(1)));
  EXPECT_TRUE(replay.waitForOutput("\"event_name\": \"n0\"", kPatience));
  EXPECT_TRUE(replay.waitForOutput("\n}\n", kPatience));
  replay.closeInput();
  EXPECT_EQ(replay.wait(kPatience).status, 0);
}

TEST(ReplayPrint, PrintsSameOutputTwiceExceptUuids) {
  const std::string script = customEvents(3) +
                             "{\"do\":\"advance\",\"ms\":1000}\n{\"do\":\"background\"}\n"
                             "{\"do\":\"advance\",\"ms\":1800001}\n{\"do\":\"foreground\"}\n" +
                             customEvents(2);
  const auto run = [&script](const TemporaryFolder& folder) {
    return runJx({"replay", "--print", "--at", "1700000000000", "--state", folder.path("state"),
                  "--version-name", "2.5", "-"},
                 script);
  };
  const TemporaryFolder one;
  const TemporaryFolder other;
  const auto first = run(one);
  EXPECT_EQ(first.status, 0);
  ASSERT_EQ(bodiesIn(first.output).size(), 5u);
  EXPECT_EQ(withoutUuids(first.output), withoutUuids(run(other).output));
  // A second run with the same state is a new visit.
  EXPECT_NE(withoutUuids(first.output), withoutUuids(run(one).output));
}

TEST(ReplayPrint, AdvancesManualClockOnlyByTheScript) {
  const auto result =
      runJx({"replay", "--print", "--at", "1700000000000"},
            customEvents(1) + "{\"do\":\"advance\",\"ms\":-5000}\n" + customEvents(1));
  const auto bodies = bodiesIn(result.output);
  ASSERT_EQ(bodies.size(), 2u);
  const auto timestamp = [&bodies](std::size_t i) {
    return parsedBody(bodies[i]).get("context").object().get("event_timestamp").numberString();
  };
  EXPECT_EQ(timestamp(0), JXString("1700000000000"));
  EXPECT_EQ(timestamp(1), JXString("1699999995000"));
}

TEST(ReplayPrint, PassesOptionsToTheLibrary) {
  const auto result =
      runJx({"replay", "--print", "--version-name", "7.1", "--behaviour", "-1"}, customEvents(1));
  const auto bodies = bodiesIn(result.output);
  ASSERT_EQ(bodies.size(), 1u);
  EXPECT_EQ(
      parsedBody(bodies[0]).get("context").object().get("app").object().get("version").string(),
      JXString("7.1"));
}

TEST(ReplayPrint, AddsPermanentParametersUntilForgotten) {
  const auto result =
      runJx({"replay", "--print"},
            "{\"do\":\"permanent\",\"key\":\"store\",\"value\":{\"n\":1.50}}\n"
            "{\"do\":\"permanent\",\"key\":\"nothing\",\"value\":null}\n" +
                customEvents(1) + "{\"do\":\"forget\",\"key\":\"store\"}\n" + customEvents(1));
  const auto bodies = bodiesIn(result.output);
  ASSERT_EQ(bodies.size(), 2u);
  EXPECT_EQ(parsedBody(bodies[0]).get("store").object().get("n").numberString(), JXString("1.50"));
  EXPECT_EQ(parsedBody(bodies[0]).get("nothing").kind(), JXJsonValue::Kind::Null);
  EXPECT_FALSE(parsedBody(bodies[1]).contains("store"));
  EXPECT_TRUE(parsedBody(bodies[1]).contains("nothing"));
}

TEST(ReplayPrint, IgnoresEventsWhileDisabled) {
  const std::string script = customEvents(1) + "{\"do\":\"enable\"}\n" + customEvents(1) +
                             "{\"do\":\"disable\"}\n" + customEvents(1);
  const auto byDefault = runJx({"replay", "--print", "--behaviour", "2"}, script);
  EXPECT_EQ(bodiesIn(byDefault.output).size(), 1u);
  EXPECT_TRUE(contains(byDefault.errors, "executed 3,")) << byDefault.errors;
  EXPECT_TRUE(contains(byDefault.errors, "2 ignored while disabled"));
  EXPECT_EQ(byDefault.status, 0);
  const auto always = runJx({"replay", "--print", "--behaviour", "1"}, script);
  EXPECT_EQ(bodiesIn(always.output).size(), 3u);
}

TEST(ReplayPrint, AcceptsAnyIntegerAsBehaviour) {
  for (const char* number : {"0", "3", "-1", "+7", "4294967298", "99999999999999999999999"}) {
    const auto result = runJx({"replay", "--print", "--behaviour", number}, customEvents(1));
    EXPECT_EQ(result.status, 0) << number;
    EXPECT_EQ(bodiesIn(result.output).size(), 1u) << number;
  }
}

TEST(ReplayPrint, AcceptsCrLfBlankLinesAndMissingLastLineEnd) {
  const auto result = runJx({"replay", "--print"},
                            "\r\n{\"do\":\"enable\"}\r\n\n  \n"
                            "{\"do\":\"event\",\"class\":\"JXCustomEvent\",\"name\":\"last\"}");
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(bodiesIn(result.output).size(), 1u);
}

TEST(ReplayPrint, AcceptsALineOfOneMebibyte) {
  const std::string text(1u << 20, 'x');
  const auto result =
      runJx({"replay", "--print"},
            R"({"do":"event","class":"JXCustomEvent","parameters":{"t":")" + text + "\"}}\n");
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_TRUE(contains(result.output, "\"t\": \"" + text + "\""));
}

TEST(ReplayPrint, ReportsFullDiskOnceAndStops) {
  const TemporaryFolder folder;
  const std::string script = folder.write("script", customEvents(3));
  const auto result = ChildProcess::run(
      "/bin/sh", {"-c", "exec \"$0\" replay --print \"$1\" > /dev/full", JX_PROGRAM, script},
      kPatience);
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors,
            "jx replay: cannot write to standard output: No space left on device\n"
            "executed 1, delivered 0, held 0, rejected 0, dropped 0\n");
}

TEST(ReplayBadLines, ReportsLineNumberAndContinues) {
  const std::string bad[] = {
      "nonsense",
      "[1]",
      R"({"do":"fly"})",
      R"({"do":"event","class":"JXNoEvent"})",
      R"({"do":"event","class":"JXCustomEvent","fields":{"color":"red"}})",
      R"({"do":"event","class":"JXCustomEvent","fields":{"pageName":{}}})",
      R"({"do":"event","class":"JXCustomEvent","mode":"START"})",
      R"({"do":"advance","ms":1})",
      R"({"do":"permanent","key":"k"})",
      "{\"do\":\"\xC3\x28\"}",
  };
  for (const std::string& line : bad) {
    const auto result =
        runJx({"replay", "--print"}, customEvents(1) + line + "\n" + customEvents(1));
    EXPECT_EQ(result.status, 1) << line;
    EXPECT_EQ(bodiesIn(result.output).size(), 2u) << line;
    EXPECT_EQ(result.errors.substr(0, 8), "line 2: ") << line;
    EXPECT_EQ(linesOf(result.errors), 2) << result.errors;
    EXPECT_TRUE(contains(result.errors, "bad lines 1")) << result.errors;
  }
}

TEST(ReplayBadLines, StopsAtFirstBadLineWithStrict) {
  const auto result =
      runJx({"replay", "--print", "--strict"}, customEvents(1) + "x\ny\n" + customEvents(1));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(bodiesIn(result.output).size(), 1u);
  EXPECT_FALSE(contains(result.errors, "line 3"));
}

TEST(ReplayBadLines, RejectsAdvanceOutOfClockRange) {
  const auto result = runJx({"replay", "--print", "--at", "9223372036854775807"},
                            "{\"do\":\"advance\",\"ms\":1}\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.errors, "line 1: ms must not move the clock out of its range\n"));
}

TEST(ReplayVerify, PrintsFirstFailedCheckWithoutSending) {
  const auto result =
      runJx({"replay", "--verify"}, customEvents(1) +
                                        "{\"do\":\"event\",\"class\":\"JXCustomEvent\"}\n"
                                        "{\"do\":\"event\",\"class\":\"JXEvent\"}\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            "line 1: JXCustomEvent \"n0\" is valid\n"
            "line 2: JXCustomEvent without name is invalid: name must be a non-empty string\n"
            "line 3: JXEvent without name is invalid: JXEvent is a base class and never passes "
            "validation\n"
            "executed 3, delivered 0, held 0, rejected 0, dropped 0\n");
  EXPECT_EQ(result.errors, "");
}

TEST(ReplayUsage, ReportsWrongUsageInOneLineWithStatus2) {
  const TemporaryFolder folder;
  const std::string script = folder.write("script", customEvents(1));
  const std::vector<std::vector<std::string>> wrong{
      {script},
      {"--nothing"},
      {"--print", script, "extra"},
      {"--print", folder.path("missing")},
      {"--print", folder.path()},
      {"--to", "collect.example.com", script},
      {"--to", "http://collect.example.com", script},
      {"--to", "https://", script},
      {"--to", "nonsense", script},
      {"--print", "--behaviour", "1.5", script},
      {"--print", "--site", "x", script},
      {"--print", "--site", "4294967296", script},
      {"--print", "--at", "noon", script},
      {"--print", "--rate", "0", script},
      {"--print", "--rate", "nan", script},
      {"--print", "--wait", "-1", script},
      {"--print", "--wait", "inf", script},
      {"--print", "--log-level", "7", script},
      {"--print", "--state", script + "/x", script},
      {"--print", "--state", "/proc/jx", script},
      {"--print", "--state", "/sys/kernel", script},
  };
  for (const auto& arguments : wrong) {
    std::vector<std::string> words{"replay"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const auto result = runJx(words);
    const std::string shown = arguments.front() + " " + (arguments.size() > 1 ? arguments[1] : "");
    EXPECT_EQ(result.status, 2) << shown;
    EXPECT_EQ(result.output, "") << shown;
    EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
    EXPECT_EQ(result.errors.substr(0, 2), "jx") << result.errors;
  }
}

TEST(ReplayUsage, HelpListsEveryOptionAndExitStatus) {
  const auto result = runJx({"replay", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* part :
       {"FILE", "--site", "--key", "--behaviour", "--to", "--ca", "--state", "--at",
        "--version-name", "--print", "--verify", "--rate", "--strict", "--wait", "--log-level",
        "nothing is sent by accident", "3 something was left undelivered"}) {
    EXPECT_TRUE(contains(result.output, part)) << part;
  }
}

TEST(ReplaySignals, FirstSignalStopsReadingAndPrintsSummary) {
  for (const int number : {SIGINT, SIGTERM}) {
    ChildProcess replay(JX_PROGRAM, {"replay", "--print"}, {}, ChildProcess::Input::Pipe);
    ASSERT_TRUE(replay.writeInput(customEvents(1)));
    ASSERT_TRUE(replay.waitForOutput("\n}\n", kPatience));
    replay.signal(number);
    const auto result = replay.wait(kPatience);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(contains(result.errors, "stopped after line 1\n")) << result.errors;
    EXPECT_TRUE(contains(result.errors, "executed 1,")) << result.errors;
  }
}

TEST(ReplaySignals, StopsImmediatelyAtLowRate) {
  ChildProcess replay(JX_PROGRAM, {"replay", "--print", "--rate", "0.001"}, {},
                      ChildProcess::Input::Pipe);
  ASSERT_TRUE(replay.writeInput(customEvents(2)));
  ASSERT_TRUE(replay.waitForOutput("\n}\n", kPatience));
  replay.signal(SIGTERM);
  const auto result = replay.wait(kPatience);
  EXPECT_FALSE(result.timedOut);
  EXPECT_TRUE(contains(result.errors, "stopped after line 1\n")) << result.errors;
}

TEST(ReplayLog, WritesLibraryLogToStandardErrorAtLogLevel) {
  const auto silent = runJx({"replay", "--print", "--key", "", "--log-level", "0"}, "");
  EXPECT_EQ(silent.errors, std::string(kNothingSent) + "\n");
  const auto loud = runJx({"replay", "--print", "--log-level", "4"}, "");
  EXPECT_TRUE(contains(loud.errors, "[JX 4] Server-Side SDK init with version 5.4.5\n"));
}

TEST(ReplayState, RemovesTemporaryFolderWhenNothingIsLeft) {
  const TemporaryFolder folder;
  const auto result = ChildProcess::run(JX_PROGRAM, {"replay", "--print", "/dev/null"}, kPatience,
                                        {{"TMPDIR", folder.path()}});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace jx
