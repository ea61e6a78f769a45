// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "tests/support/CollectorProgram.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/ReservedPort.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/jx/ProgramRun.h"

// Tests of `jx replay` with a server, and with a server that is not reachable.

namespace jx {
namespace {

using test::CollectorProgram;
using test::JXTestAnswer;
using test::JXTestServer;
using test::ReservedPort;
using test::TemporaryFolder;

std::string at(const ReservedPort& port) {
  return "https://127.0.0.1:" + std::to_string(port.number());
}

std::string addressOf(const JXTestServer& server) { return server.url(""); }

TEST(ReplayDelivery, DeliversEachEventOnceWithSiteAndKey) {
  const TemporaryFolder folder;
  const CollectorProgram collector(JX_PROGRAM, folder.path());
  const std::string script = folder.write("script", customEvents(20));
  const auto result =
      runJx({"replay", script, "--to", collector.address(), "--ca", collector.caFile(), "--site",
             "42", "--key", "some-key", "--state", folder.path("state")});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "executed 20, delivered 20, held 0, rejected 0, dropped 0\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(collector.eventIds().size(), 20u);
  EXPECT_EQ(collector.repeats(), "0");
  const JXJsonObject first = collector.events().at(0).object();
  EXPECT_EQ(first.get("site").numberString(), JXString("42"));
  EXPECT_EQ(first.get("token").string(), JXString("some-key"));
}

TEST(ReplayDelivery, KeepsAThousandEventsWhenKilled) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const std::string state = folder.path("state");
  {
    ChildProcess replay(JX_PROGRAM, {"replay", "--to", at(port), "--state", state}, {},
                        ChildProcess::Input::Pipe);
    // The message about the following line shows that all events were executed.
    ASSERT_TRUE(replay.writeInput(customEvents(1'000) + "the end\n"));
    ASSERT_TRUE(replay.waitForErrors("line 1001: ", kPatience));
    replay.signal(SIGKILL);
    EXPECT_EQ(replay.wait(kPatience).status, 128 + SIGKILL);
  }
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output.substr(0, 14), "1000 requests ");
  const CollectorProgram collector(JX_PROGRAM, folder.path(), port.number());
  const auto result = runJx({"replay", "/dev/null", "--to", at(port), "--ca", collector.caFile(),
                             "--state", state, "--wait", "90"});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "executed 0, delivered 1000, held 0, rejected 0, dropped 0\n");
  EXPECT_EQ(collector.eventIds().size(), 1'000u);
  EXPECT_EQ(collector.repeats(), "0");
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output.substr(0, 11), "0 requests ");
}

TEST(ReplayDelivery, KeepsEventsWithStatus3WithoutAServer) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const auto result = ChildProcess::run(JX_PROGRAM,
                                        {"replay", folder.write("script", customEvents(3)), "--to",
                                         at(port), "--wait", "0", "--log-level", "0"},
                                        kPatience, {{"TMPDIR", folder.makeFolder("tmp")}});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output, "executed 3, delivered 0, held 3, rejected 0, dropped 0\n");
  const std::string message = "undelivered events are kept; send them later with --state ";
  ASSERT_EQ(result.errors.substr(0, message.size()), message) << result.errors;
  const std::string kept =
      result.errors.substr(message.size(), result.errors.size() - message.size() - 1);
  EXPECT_EQ(runJx({"queue", "status", "--state", kept}).output.substr(0, 2), "3 ");
}

TEST(ReplayDelivery, RemovesTemporaryStateWhenAllDelivered) {
  const TemporaryFolder folder;
  JXTestServer server;
  const auto result = ChildProcess::run(JX_PROGRAM,
                                        {"replay", folder.write("script", customEvents(3)), "--to",
                                         addressOf(server), "--ca", server.caFile()},
                                        kPatience, {{"TMPDIR", folder.makeFolder("tmp")}});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(server.requests().size(), 3u);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path("tmp")));
}

TEST(ReplayDelivery, ReportsWrongCaFileInOneLineAndKeepsEvents) {
  const TemporaryFolder folder;
  JXTestServer server;
  const JXTestServer stranger;
  for (const std::string& caFile :
       {stranger.caFile(), folder.path("missing"), folder.write("empty", "")}) {
    const std::string state = folder.path("state of " + caFile.substr(caFile.rfind('/') + 1));
    const auto result = runJx(
        {"replay", "--to", addressOf(server), "--ca", caFile, "--state", state, "--wait", "0.5"},
        customEvents(2));
    EXPECT_EQ(result.status, 3) << caFile;
    EXPECT_EQ(result.output, "executed 2, delivered 0, held 2, rejected 0, dropped 0\n");
    EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
    EXPECT_TRUE(contains(result.errors, "Delivery failed")) << result.errors;
    const auto again =
        runJx({"replay", "--to", addressOf(server), "--ca", server.caFile(), "--state", state});
    EXPECT_EQ(again.output, "executed 0, delivered 2, held 0, rejected 0, dropped 0\n");
  }
  EXPECT_EQ(server.requests().size(), 6u);
}

TEST(ReplayDelivery, MovesRejectedEventToDeadLetters) {
  const TemporaryFolder folder;
  JXTestServer server;
  JXTestAnswer refusal;
  refusal.status = 410;
  server.answerNext(refusal);
  const auto result = runJx({"replay", "--to", addressOf(server), "--ca", server.caFile(),
                             "--state", folder.path("state"), "--log-level", "0"},
                            customEvents(1));
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output, "executed 1, delivered 0, held 0, rejected 1, dropped 0\n");
  const auto dead = runJx({"queue", "dead", "--state", folder.path("state")});
  EXPECT_EQ(dead.status, 0);
  EXPECT_EQ(linesOf(dead.output), 1) << dead.output;
  EXPECT_TRUE(contains(dead.output, "  410  ")) << dead.output;
  EXPECT_TRUE(contains(dead.output, "  n0  ")) << dead.output;
}

TEST(ReplayDelivery, ReturnsStatus1ForBadLinesWhenAllDelivered) {
  JXTestServer server;
  const auto result = runJx({"replay", "--to", addressOf(server), "--ca", server.caFile()},
                            customEvents(1) + "x\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "executed 1, delivered 1, held 0, rejected 0, dropped 0; bad lines 1\n");
}

TEST(ReplayDelivery, SendsBackgroundEventsAfterForeground) {
  const TemporaryFolder folder;
  JXTestServer server;
  const std::vector<std::string> words{"replay",        "--to",    addressOf(server),   "--ca",
                                       server.caFile(), "--state", folder.path("state")};
  // Delivery is blocked, so the program does not wait.
  const auto away = runJx(words, "{\"do\":\"background\"}\n" + customEvents(2));
  EXPECT_EQ(away.status, 3);
  EXPECT_EQ(away.output, "executed 2, delivered 0, held 2, rejected 0, dropped 0\n");
  EXPECT_EQ(server.requests().size(), 0u);
  const auto back =
      runJx(words, "{\"do\":\"background\"}\n" + customEvents(1) + "{\"do\":\"foreground\"}\n");
  EXPECT_EQ(back.status, 0) << back.errors;
  EXPECT_EQ(back.output, "executed 1, delivered 3, held 0, rejected 0, dropped 0\n");
}

TEST(ReplayDelivery, KeepsQueueWithoutConsentAndSendsWhenEnabled) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const std::string state = folder.path("state");
  const auto offline =
      runJx({"replay", "--to", at(port), "--state", state, "--wait", "0", "--log-level", "0"},
            customEvents(2));
  EXPECT_EQ(offline.status, 3);
  const CollectorProgram collector(JX_PROGRAM, folder.path(), port.number());
  const std::vector<std::string> words{"replay",  "--to", at(port),      "--ca", collector.caFile(),
                                       "--state", state,  "--behaviour", "2"};
  const auto without = runJx(words, customEvents(1));
  EXPECT_EQ(without.status, 3);
  EXPECT_EQ(without.output,
            "executed 1, delivered 0, held 2, rejected 0, dropped 0; 1 ignored while disabled\n");
  EXPECT_EQ(collector.eventCount(), 0u);
  const auto with = runJx(words, "{\"do\":\"enable\"}\n");
  EXPECT_EQ(with.status, 0) << with.errors;
  EXPECT_EQ(collector.eventCount(), 2u);
}

TEST(ReplayDelivery, DeliversScriptLongerThanTheQueue) {
  JXTestServer server;
  const auto result = runJx({"replay", "--to", addressOf(server), "--ca", server.caFile(), "--wait",
                             "90", "--log-level", "2"},
                            customEvents(12'000));
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "executed 12000, delivered 12000, held 0, rejected 0, dropped 0\n");
}

TEST(ReplayDelivery, AllowsHttpForLoopback) {
  test::JXTestServerOptions options;
  options.tls = false;
  JXTestServer server(options);
  const auto result = runJx({"replay", "--to", "http://127.0.0.1:" + std::to_string(server.port())},
                            customEvents(1));
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(server.requests().size(), 1u);
}

TEST(ReplaySignals, SecondSignalStopsWaiting) {
  const TemporaryFolder folder;
  JXTestServer server;
  JXTestAnswer silence;
  silence.manner = JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(silence);
  ChildProcess replay(JX_PROGRAM,
                      {"replay", "--to", addressOf(server), "--ca", server.caFile(), "--state",
                       folder.path("state"), "--wait", "1000"},
                      {}, ChildProcess::Input::Pipe);
  ASSERT_TRUE(replay.writeInput(customEvents(1)));
  ASSERT_TRUE(server.waitForRequests(1));
  replay.signal(SIGINT);
  ASSERT_TRUE(replay.waitForErrors("stopped after line 1\n", kPatience));
  replay.signal(SIGINT);
  const auto result = replay.wait(kPatience);
  EXPECT_FALSE(result.timedOut);
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output, "executed 1, delivered 0, held 1, rejected 0, dropped 0\n");
}

}  // namespace
}  // namespace jx
