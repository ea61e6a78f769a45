// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <csignal>
#include <fstream>

#include "tests/support/ChildProcess.h"
#include "tests/support/HttpsClient.h"
#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/AtomicFile.h"
#include "tools/jx/collector/ListeningSocket.h"

namespace jx {
namespace {

using std::chrono::seconds;

constexpr seconds kPatience{60};

ChildProcess::Result runJx(const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment = {}) {
  return ChildProcess::run(JX_PROGRAM, arguments, kPatience, environment);
}

std::ptrdiff_t linesOf(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

// A collector in a child process, on free ports.
class RunningCollector {
 public:
  explicit RunningCollector(const std::filesystem::path& folder)
      : process_(JX_PROGRAM, {"collector", "--state", (folder / "state").string(), "--port", "0",
                              "--web-port", "0", "--ports-file", (folder / "ports").string()}) {
    if (!process_.waitForOutput("Ctrl-C", kPatience)) throw std::runtime_error("did not start");
    const Result<std::string> text = readWholeFile(folder / "ports");
    if (!text) throw std::runtime_error(text.error().text);
    ports_.Parse(text->data(), text->size());
    if (!ports_.IsObject()) throw std::runtime_error("not JSON: " + *text);
  }

  ChildProcess& process() { return process_; }
  const rapidjson::Document& ports() const { return ports_; }
  std::string caFile() const { return ports_["ca"].GetString(); }
  std::string eventsUrl() const {
    return "https://localhost:" + std::to_string(ports_["events_port"].GetInt()) + "/events";
  }
  std::string webUrl(const std::string& path) const {
    return "http://localhost:" + std::to_string(ports_["web_port"].GetInt()) + path;
  }

 private:
  ChildProcess process_;
  rapidjson::Document ports_;
};

TEST(Program, PrintsItsVersionInOneLine) {
  const auto result = runJx({"--version"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output.substr(0, 9), "jx 0.1.0 ");
  EXPECT_EQ(linesOf(result.output), 1);
  EXPECT_EQ(result.errors, "");
}

TEST(Program, HelpListsTheCommands) {
  const auto result = runJx({"--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find("collector"), std::string::npos);
  EXPECT_EQ(result.errors, "");
}

TEST(Program, PrintsHelpAndFailsWithoutArguments) {
  const auto result = runJx({});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("Usage: jx"), std::string::npos);
}

TEST(Program, ReportsUsageErrorsInOneLineWithStatusTwo) {
  const std::vector<std::vector<std::string>> wrong{{"nothing"},
                                                    {"--nothing"},
                                                    {"collector", "--nothing"},
                                                    {"collector", "extra"},
                                                    {"collector", "--port"},
                                                    {"collector", "--port", "65536"},
                                                    {"collector", "--port", "x"},
                                                    {"collector", "--max-events", "0"},
                                                    {"collector", "--max-bytes", "1000"},
                                                    {"collector", "--name", "a b"}};
  for (const auto& arguments : wrong) {
    const auto result = runJx(arguments);
    EXPECT_EQ(result.status, 2) << arguments.back();
    EXPECT_EQ(result.output, "") << arguments.back();
    EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
    EXPECT_EQ(result.errors.substr(0, 4), "jx: ") << result.errors;
  }
}

TEST(CollectorProgram, HelpListsEveryOption) {
  const auto result = runJx({"collector", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* option : {"--state", "--port", "--listen", "--web-port", "--web-listen",
                             "--name", "--max-events", "--max-bytes", "--strict", "--ports-file"}) {
    EXPECT_NE(result.output.find(option), std::string::npos) << option;
  }
}

TEST(CollectorProgram, PrintsUrlsAndCaFile) {
  const ScratchFolder folder;
  RunningCollector collector(folder.path());
  collector.process().signal(SIGTERM);
  const auto result = collector.process().wait(kPatience);
  EXPECT_NE(result.output.find(collector.eventsUrl()), std::string::npos) << result.output;
  EXPECT_NE(result.output.find(collector.webUrl("/")), std::string::npos);
  EXPECT_NE(result.output.find((folder / "state" / "ca.pem").string()), std::string::npos);
  EXPECT_NE(result.output.find("update-ca-certificates"), std::string::npos);
  EXPECT_EQ(result.errors, "");
}

TEST(CollectorProgram, WritesPortsCaFileAndPidToThePortsFile) {
  const ScratchFolder folder;
  RunningCollector collector(folder.path());
  EXPECT_EQ(collector.ports()["pid"].GetInt(), collector.process().pid());
  EXPECT_EQ(collector.caFile(), (folder / "state" / "ca.pem").string());
  EXPECT_EQ(HttpsClient(collector.caFile()).post(collector.eventsUrl(), "{}").status, 200);
  EXPECT_EQ(HttpsClient().get(collector.webUrl("/api/summary")).status, 200);
}

TEST(CollectorProgram, ExitsWithStatusZeroOnSigtermAndSigint) {
  for (const int number : {SIGTERM, SIGINT}) {
    const ScratchFolder folder;
    RunningCollector collector(folder.path());
    HttpsClient client(collector.caFile());
    // The client keeps its connection open, which must not delay the exit.
    ASSERT_EQ(client.post(collector.eventsUrl(), "{}").status, 200);
    collector.process().signal(number);
    const auto result = collector.process().wait(seconds(20));
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
  }
}

TEST(CollectorProgram, KeepsAcknowledgedEventsAfterSigkill) {
  const ScratchFolder folder;
  {
    RunningCollector collector(folder.path());
    HttpsClient client(collector.caFile());
    for (int i = 0; i < 20; ++i)
      ASSERT_EQ(client.post(collector.eventsUrl(), "{}").status, 200);
    collector.process().signal(SIGKILL);
    EXPECT_EQ(collector.process().wait(kPatience).status, 128 + SIGKILL);
  }
  RunningCollector collector(folder.path());
  const auto summary = HttpsClient().get(collector.webUrl("/api/summary"));
  EXPECT_EQ(summary.body.substr(0, 15), "{\"requests\":20,");
}

TEST(CollectorProgram, ReportsAPortInUseInOneLineWithStatusOne) {
  const ScratchFolder folder;
  const auto taken = ListeningSocket::open("127.0.0.1", 0);
  ASSERT_TRUE(taken);
  const std::string port = std::to_string(taken->port());
  for (const bool isEventsPort : {true, false}) {
    const auto result = runJx({"collector", "--state", (folder / "state").string(), "--port",
                               isEventsPort ? port : "0", "--web-port", isEventsPort ? "0" : port});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "jx collector: cannot listen on 127.0.0.1 port " + port +
                                 ": the port is already in use\n");
  }
}

TEST(CollectorProgram, ReportsAnUnusableStateFolderInOneLineWithStatusOne) {
  const ScratchFolder folder;
  std::ofstream(folder / "file") << "in the way";
  const auto below = runJx({"collector", "--state", (folder / "file" / "state").string()});
  EXPECT_EQ(below.status, 1);
  EXPECT_EQ(linesOf(below.errors), 1) << below.errors;
  EXPECT_NE(below.errors.find("cannot create the state folder"), std::string::npos);
  const auto itself = runJx({"collector", "--state", (folder / "file").string()});
  EXPECT_EQ(itself.status, 1);
  EXPECT_NE(itself.errors.find("cannot write to the state folder"), std::string::npos);
}

TEST(CollectorProgram, ReportsADamagedAuthorityInOneLineWithStatusOne) {
  const ScratchFolder folder;
  std::ofstream(folder / "ca.pem") << "garbage";
  std::ofstream(folder / "ca.key") << "garbage";
  const auto result =
      runJx({"collector", "--state", folder.path().string(), "--port", "0", "--web-port", "0"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
  EXPECT_NE(result.errors.find("ca.pem does not contain a certificate"), std::string::npos);
}

TEST(CollectorProgram, RejectsAStateFolderInUse) {
  const ScratchFolder folder;
  const RunningCollector collector(folder.path());
  const auto second = runJx(
      {"collector", "--state", (folder / "state").string(), "--port", "0", "--web-port", "0"});
  EXPECT_EQ(second.status, 1);
  EXPECT_NE(second.errors.find("is in use by another collector"), std::string::npos);
}

TEST(CollectorProgram, StoresStateUnderXdgStateHomeOrHome) {
  const ScratchFolder folder;
  const std::string xdg = (folder / "xdg").string();
  const std::string home = (folder / "home").string();
  // The port is in use, so the program exits after it has created the folder.
  const auto taken = ListeningSocket::open("127.0.0.1", 0);
  ASSERT_TRUE(taken);
  const std::vector<std::string> arguments{"collector", "--port", std::to_string(taken->port())};
  EXPECT_EQ(runJx(arguments, {{"XDG_STATE_HOME", xdg}, {"HOME", home}}).status, 1);
  EXPECT_TRUE(std::filesystem::exists(folder / "xdg" / "jx-collector" / "ca.pem"));
  EXPECT_FALSE(std::filesystem::exists(folder / "home"));
  EXPECT_EQ(runJx(arguments, {{"XDG_STATE_HOME", "relative"}, {"HOME", home}}).status, 1);
  EXPECT_TRUE(std::filesystem::exists(folder / "home/.local/state/jx-collector/ca.pem"));
}

}  // namespace
}  // namespace jx
