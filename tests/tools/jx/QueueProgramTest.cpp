// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <regex>

#include "tests/support/ReservedPort.h"
#include "tests/support/StoredBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/jx/ProgramRun.h"

namespace jx {
namespace {

using test::ReservedPort;
using test::TemporaryFolder;

// Returns a state folder in which an exited process left three requests.
std::string stateWithThreeRequests(const TemporaryFolder& folder) {
  const ReservedPort port;
  const std::string state = folder.path("state");
  const std::string to = "https://127.0.0.1:" + std::to_string(port.number());
  EXPECT_EQ(runJx({"replay", "--to", to, "--state", state, "--wait", "0"}, customEvents(3)).status,
            3);
  return state;
}

TEST(QueueProgram, ListsQueueOfARunningReplay) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const std::string state = folder.path("state");
  ChildProcess replay(
      JX_PROGRAM,
      {"replay", "--to", "https://127.0.0.1:" + std::to_string(port.number()), "--state", state},
      {}, ChildProcess::Input::Pipe);
  ASSERT_TRUE(replay.writeInput(customEvents(3) + "x\n"));
  ASSERT_TRUE(replay.waitForErrors("line 4: ", kPatience));
  const auto status = runJx({"queue", "status", "--state", state});
  EXPECT_EQ(status.status, 0) << status.errors;
  EXPECT_EQ(status.output.substr(0, 18), "3 requests queued,");
  const auto list = runJx({"queue", "list", "--state", state});
  EXPECT_EQ(list.status, 0);
  ASSERT_EQ(linesOf(list.output), 3) << list.output;
  const std::regex line(
      "20[0-9-]{8}T[0-9:]{8}\\.[0-9]{3}Z +[0-9]+  n0 +  [0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
  EXPECT_TRUE(std::regex_match(list.output.substr(0, list.output.find('\n')), line)) << list.output;
  const auto dead = runJx({"queue", "dead", "--state", state});
  EXPECT_EQ(dead.status, 0);
  EXPECT_EQ(dead.output, "");
  // The process that has the folder open is not affected.
  ASSERT_TRUE(replay.writeInput(customEvents(1) + "y\n"));
  ASSERT_TRUE(replay.waitForErrors("line 6: ", kPatience));
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output.substr(0, 2), "4 ");
}

TEST(QueueProgram, PurgeDeletesRequestsOfAnExitedProcess) {
  const TemporaryFolder folder;
  const std::string state = stateWithThreeRequests(folder);
  const auto list = runJx({"queue", "list", "--json", "--state", state});
  EXPECT_EQ(linesOf(list.output), 3);
  EXPECT_TRUE(contains(list.output, "\"body\":{\"event_name\": \"n0\",")) << list.output;
  const auto purge = runJx({"queue", "purge", "--state", state});
  EXPECT_EQ(purge.status, 0) << purge.errors;
  EXPECT_EQ(purge.output, "3 requests and 0 dead letters deleted\n");
  EXPECT_EQ(runJx({"queue", "list", "--json", "--state", state}).output, "");
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output,
            "0 requests queued, 0 bytes; 0 dead letters\n");
}

// Without the rights of a superuser, this tests the owner only.
TEST(QueueProgram, SuperuserContinuesAsTheOwnerOfTheFolder) {
  namespace fs = std::filesystem;
  constexpr uid_t kNobody = 65534;
  const TemporaryFolder folder;
  const std::string state = stateWithThreeRequests(folder);
  folder.write("target", "content");
  fs::create_symlink(folder.path("target"), state + "/outbox/dead");
  const bool isSuperuser = ::geteuid() == 0;
  if (isSuperuser) {
    fs::permissions(folder.path(), fs::perms::others_exec, fs::perm_options::add);
    for (const auto& entry : fs::recursive_directory_iterator(state))
      ASSERT_EQ(::lchown(entry.path().c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(::lchown(state.c_str(), kNobody, kNobody), 0);
  }
  EXPECT_EQ(linesOf(runJx({"queue", "list", "--state", state}).output), 3);
  const auto dead = runJx({"queue", "dead", "--state", state});
  EXPECT_EQ(dead.status, 1);
  EXPECT_EQ(dead.errors, "jx queue: cannot read dead: It is a symbolic link\n");
  const auto purge = runJx({"queue", "purge", "--state", state});
  EXPECT_EQ(purge.status, 0) << purge.errors;
  EXPECT_EQ(purge.output, "3 requests and 0 dead letters deleted\n");
  EXPECT_EQ(test::bytesFound(folder.path(), {"content"}), std::vector<std::string>{"content"});
  for (const auto& entry : fs::recursive_directory_iterator(state)) {
    struct stat status {};
    ASSERT_EQ(::lstat(entry.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, isSuperuser ? kNobody : ::geteuid()) << entry.path();
  }
}

TEST(QueueProgram, PurgeAppliesToRunningProcessButNotToNewEvents) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const std::string state = folder.path("state");
  ChildProcess replay(JX_PROGRAM,
                      {"replay", "--to", "https://127.0.0.1:" + std::to_string(port.number()),
                       "--state", state, "--wait", "0"},
                      {}, ChildProcess::Input::Pipe);
  ASSERT_TRUE(replay.writeInput(customEvents(2) + "x\n"));
  ASSERT_TRUE(replay.waitForErrors("line 3: ", kPatience));
  const auto purge = runJx({"queue", "purge", "--state", state});
  EXPECT_EQ(purge.status, 0) << purge.errors;
  EXPECT_EQ(purge.output,
            "0 requests and 0 dead letters deleted\n2 requests more in use by a running process, "
            "which deletes them before it sends anything else\n");
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output.substr(0, 2), "0 ");
  ASSERT_TRUE(replay.writeInput(customEvents(1)));
  replay.closeInput();
  const auto result = replay.wait(kPatience);
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output.substr(0, 2), "1 ");
}

TEST(QueueProgram, PurgeAllDeletesEveryFile) {
  const TemporaryFolder folder;
  const std::string state = stateWithThreeRequests(folder);
  folder.write("state/notes", "mine");
  const auto purge = runJx({"queue", "purge", "--all", "--state", state});
  EXPECT_EQ(purge.status, 0) << purge.errors;
  EXPECT_EQ(purge.output, "all stored data deleted\n");
  EXPECT_EQ(test::filesBelow(state), (std::vector<std::string>{"erased", "notes"}));
  EXPECT_EQ(runJx({"queue", "status", "--state", state}).output,
            "0 requests queued, 0 bytes; 0 dead letters\n");
  // Again, and in a folder that has never had a queue.
  EXPECT_EQ(runJx({"queue", "purge", "--all", "--state", state}).status, 0);
  folder.write("unused/erased", "");
  EXPECT_EQ(runJx({"queue", "purge", "--all", "--state", folder.path("unused")}).status, 0);
  EXPECT_EQ(runJx({"queue", "status", "--state", folder.path("unused")}).status, 0);
}

TEST(QueueProgram, PurgeAllAppliesToRunningProcessButNotToNewEvents) {
  const TemporaryFolder folder;
  const ReservedPort port;
  const std::string state = folder.path("state");
  ChildProcess replay(JX_PROGRAM,
                      {"replay", "--to", "https://127.0.0.1:" + std::to_string(port.number()),
                       "--state", state, "--wait", "0"},
                      {}, ChildProcess::Input::Pipe);
  ASSERT_TRUE(replay.writeInput(customEvents(2) + "x\n"));
  ASSERT_TRUE(replay.waitForErrors("line 3: ", kPatience));
  const auto purge = runJx({"queue", "purge", "--all", "--state", state});
  EXPECT_EQ(purge.status, 0) << purge.errors;
  ASSERT_TRUE(
      replay.writeInput("{\"do\":\"event\",\"class\":\"JXCustomEvent\",\"name\":\"later\"}\n"));
  replay.closeInput();
  EXPECT_EQ(replay.wait(kPatience).status, 3);
  const auto list = runJx({"queue", "list", "--state", state});
  EXPECT_EQ(linesOf(list.output), 1) << list.output;
  EXPECT_TRUE(contains(list.output, "  later ")) << list.output;
  EXPECT_EQ(test::bytesFound(state, {"\"n0\"", "\"n1\""}), std::vector<std::string>());
}

TEST(QueueProgram, PurgeAllRejectsOtherFolders) {
  const TemporaryFolder folder;
  folder.write("other/notes", "mine");
  for (const std::string& path :
       {folder.path("missing"), folder.path("other"), folder.write("file", "x")}) {
    const auto result = runJx({"queue", "purge", "--all", "--state", path});
    EXPECT_EQ(result.status, 1) << path;
    EXPECT_EQ(result.errors, "jx queue: not a state folder: " + path + "\n");
  }
  EXPECT_EQ(test::filesBelow(folder.path()), (std::vector<std::string>{"file", "other/notes"}));
}

TEST(QueueProgram, ReportsEmptyQueueWithoutOutbox) {
  const TemporaryFolder folder;
  ASSERT_EQ(runJx({"replay", "--print", "--state", folder.path("state")}, customEvents(1)).status,
            0);
  const auto status = runJx({"queue", "status", "--state", folder.path("state")});
  EXPECT_EQ(status.status, 0) << status.errors;
  EXPECT_EQ(status.output, "0 requests queued, 0 bytes; 0 dead letters\n");
  EXPECT_EQ(runJx({"queue", "list", "--state", folder.path("state")}).output, "");
  EXPECT_EQ(runJx({"queue", "purge", "--state", folder.path("state")}).output,
            "0 requests and 0 dead letters deleted\n");
}

TEST(QueueProgram, ReportsMissingOrInvalidFolderInOneLine) {
  const TemporaryFolder folder;
  for (const std::string& path :
       {folder.path("missing"), folder.path(), folder.write("file", "x")}) {
    for (const char* verb : {"status", "list", "dead", "purge"}) {
      const auto result = runJx({"queue", verb, "--state", path});
      EXPECT_EQ(result.status, 1) << path;
      EXPECT_EQ(result.output, "");
      EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
      EXPECT_TRUE(contains(result.errors, path)) << result.errors;
    }
  }
}

TEST(QueueProgram, ReportsWrongUsageInOneLineWithStatus2) {
  for (const auto& arguments :
       std::vector<std::vector<std::string>>{{"queue"},
                                             {"queue", "status"},
                                             {"queue", "--state", "x"},
                                             {"queue", "status", "--json", "--state", "x"},
                                             {"queue", "purge", "--json", "--state", "x"},
                                             {"queue", "status", "--all", "--state", "x"},
                                             {"queue", "dance", "--state", "x"}}) {
    const auto result = runJx(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
  }
}

TEST(QueueProgram, HelpListsTheVerbs) {
  const auto result = runJx({"queue", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* part : {"status", "list", "dead", "purge", "--state", "--json", "--all"}) {
    EXPECT_TRUE(contains(result.output, part)) << part;
  }
}

}  // namespace
}  // namespace jx
