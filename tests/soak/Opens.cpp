// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/soak/CommandedWorker.h"
#include "tests/soak/ControlledProcess.h"
#include "tests/soak/LoadedSide.h"
#include "tests/soak/OpenLog.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

namespace fs = std::filesystem;

test::JXTestAnswer responseWith(int status) {
  test::JXTestAnswer answer;
  answer.status = status;
  return answer;
}

// Runs processes on one folder so that they open every file that there can be.
class OpensLife {
 public:
  explicit OpensLife(std::string jx) : jx_(std::move(jx)), log_(folder_.path("log")) {
    fs::create_directory(root());
  }

  void run() {
    runFirst();
    damage(state() + "/defaults");
    damage(oldestSegment());
    runSecond();
    runQueueCommand({"purge", "--all"});
  }

  // Everything in it belongs to the storage folder, under its name or another one.
  std::string root() const { return folder_.path("root"); }
  std::string state() const { return root() + "/state"; }
  std::string movedState() const { return root() + "/moved"; }
  std::vector<OpenCall> calls() const { return log_.calls(); }
  std::string caFile() const { return server_.caFile(); }

 private:
  void runFirst() {
    ControlledProcess first(options(0), log_.environment());
    server_.answerAll(responseWith(400));
    execute(first, 8);
    first.perform({command::kFlush});
    server_.answerAll(responseWith(200));
    first.perform({command::kDisable});
    first.perform({command::kEnable});
    server_.refuse();
    // Several segments of 1 MiB: those beyond the second are closed and opened again.
    execute(first, 600);
    for (const char* const verb : {"status", "list", "dead"})
      runQueueCommand({verb});
    fs::rename(state(), movedState());
    execute(first, 2);
    first.exit();
  }

  void runSecond() {
    ControlledProcess second(options(1), log_.environment());
    const ino_t damaged = inode(state() + "/defaults");
    second.perform({command::kExecute});
    // The transfer thread rewrites the damaged file; the erase below would remove it before that.
    waitUntil([&] { return inode(state() + "/defaults") != damaged; }, "the rewritten defaults");
    runQueueCommand({"purge"});
    server_.accept();
    second.perform({command::kFlush});
    server_.refuse();
    execute(second, 2);
    second.perform({command::kPurge});
    second.perform({command::kErase});
    server_.accept();
    execute(second, 2);
    second.perform({command::kFlush});
    second.exit();
  }

  WorkerOptions options(std::uint64_t process) const {
    WorkerOptions options;
    options.state = state();
    options.host = server_.url("");
    options.caFile = server_.caFile();
    options.first = (process + 1) * kNumbersPerWorker;
    options.takesCommands = true;
    options.threads = 0;
    options.padBytes = 20'000;
    options.quick = true;
    options.deadLetters = 3;
    return options;
  }

  static void execute(ControlledProcess& process, int events) {
    for (int i = 0; i < events; ++i)
      process.perform({command::kExecute});
  }

  void runQueueCommand(const std::vector<std::string>& words) const {
    std::vector<std::string> all{"queue"};
    all.insert(all.end(), words.begin(), words.end());
    all.insert(all.end(), {"--state", state()});
    const ChildProcess::Result result =
        ChildProcess::run(jx_, all, std::chrono::minutes(1), log_.environment());
    if (result.status != 0) throw std::runtime_error("jx queue failed: " + result.errors);
  }

  std::string oldestSegment() const {
    std::vector<std::string> segments;
    for (const auto& entry : fs::directory_iterator(state() + "/outbox")) {
      if (entry.path().filename().string().rfind("segment-", 0) == 0)
        segments.push_back(entry.path().string());
    }
    if (segments.empty()) throw std::runtime_error("no segment is left");
    return *std::min_element(segments.begin(), segments.end());
  }

  static ino_t inode(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) throw std::runtime_error("cannot read " + path);
    return status.st_ino;
  }

  static void damage(const std::string& path) {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(fs::file_size(path) / 2));
    file.write("damage", 6);
    if (!file) throw std::runtime_error("cannot damage " + path);
  }

  const std::string jx_;
  const test::TemporaryFolder folder_;
  test::JXTestServer server_;
  OpenLog log_;
};

// The life is complete if all of these were opened.
bool opensEverything(const std::vector<std::string>& table) {
  static const std::vector<std::string> kExpected{"STORAGE |",
                                                  "STORAGE/defaults |",
                                                  "STORAGE/defaults.new |",
                                                  "STORAGE/erased |",
                                                  "STORAGE/outbox |",
                                                  "STORAGE/outbox/lock |",
                                                  "STORAGE/outbox/dead |",
                                                  "STORAGE/outbox/dead.new |",
                                                  "STORAGE/outbox/stopped-N |",
                                                  "STORAGE/outbox/segment-N |",
                                                  "STORAGE/outbox/segment-N.purge |",
                                                  "STORAGE/outbox/segment-N.damaged-N |",
                                                  "STORAGE/defaults.damaged-N |"};
  return std::all_of(kExpected.begin(), kExpected.end(), [&](const std::string& expected) {
    return std::any_of(table.begin(), table.end(),
                       [&](const std::string& line) { return line.rfind(expected, 0) == 0; });
  });
}

// Returns the violations of a program that opens files carelessly.
std::set<std::string> findCareless() {
  const test::TemporaryFolder folder;
  const OpenLog log(folder.path("log"));
  const std::string self = fs::read_symlink("/proc/self/exe").string();
  ChildProcess::run(self, {"careless", "--state", folder.path("state")}, std::chrono::minutes(1),
                    log.environment());
  return violationsIn(log.calls(), folder.path("state"));
}

}  // namespace

int opens(Arguments& arguments) {
  const std::string jx = arguments.text("jx");
  arguments.expectAllKnown();
  if (jx.empty()) throw std::invalid_argument("--jx is required: the program jx");
  Report report("opens");
  OpensLife life(jx);
  life.run();
  const std::vector<OpenCall> calls = life.calls();
  const std::vector<std::string> table = tableOf(
      calls, {{life.state(), "STORAGE"}, {life.movedState(), "MOVED"}, {life.caFile(), "CA"}});
  report.say(
      "O_NOFOLLOW applies to the last part of a path: folders above the storage folder may be "
      "links");
  report.say("path | function | flags | caller | calls");
  for (const std::string& line : table)
    report.say(line);
  const std::set<std::string> violations = violationsIn(calls, life.root());
  for (const std::string& violation : violations)
    report.say(violation);
  report.promise(opensEverything(table), "every kind of file is opened");
  report.promise(violations.empty(),
                 "O_NOFOLLOW and O_CLOEXEC for all files of the storage "
                 "folder, O_CLOEXEC for all other descriptors of the library");
  report.promise(findCareless().size() == 6, "the missing flags of a careless program are found");
  return report.status();
}

int careless(Arguments& arguments) {
  const std::string state = arguments.text("state");
  arguments.expectAllKnown();
  fs::create_directory(state);
  const std::string file = state + "/file";
  ::close(::open(file.c_str(), O_RDWR | O_CREAT, 0600));             // lacks both flags
  ::close(::open(file.c_str(), O_RDONLY | O_CLOEXEC));               // lacks O_NOFOLLOW
  std::fclose(std::fopen(file.c_str(), "r"));                        // lacks both
  ::close(::socket(AF_INET, SOCK_STREAM, 0));                        // lacks SOCK_CLOEXEC
  ::close(::open("/dev/null", O_RDONLY | O_NOFOLLOW | O_CLOEXEC));   // lacks none
  ::close(::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));  // lacks none
  return 0;
}

}  // namespace jx::soak
