// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/CommandedWorker.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "jx/JXServerSide.h"
#include "tests/soak/Record.h"

namespace jx::soak {
namespace {

using std::chrono::milliseconds;
using Steady = std::chrono::steady_clock;

constexpr milliseconds kSlowGap{20};
// A sleeping child lives longer than most workers.
constexpr unsigned kChildSleepS = 1;

// Advances like the clock of the system, from the time that was set last.
class SettableClock final : public JXClock {
 public:
  void set(std::int64_t nowMs) { offsetMs_ = nowMs - realMs(); }
  std::int64_t nowMs() const override { return realMs() + offsetMs_; }

 private:
  static std::int64_t realMs() { return JXSystemClock().nowMs(); }
  std::atomic<std::int64_t> offsetMs_{0};
};

class CommandedWorker {
 public:
  explicit CommandedWorker(const WorkerOptions& options) : options_(options) {}

  void start() {
    if (options_.wallMs != 0) clock_->set(static_cast<std::int64_t>(options_.wallMs));
    JXCoreConfiguration configuration = configurationOf(options_);
    configuration.clock = clock_;
    JXCoreConfiguration::set(configuration);
    const Steady::time_point before = Steady::now();
    serverSide_ = ServerSide::initWithSiteID_andSourceKey(1, "key");
    const auto took = std::chrono::duration_cast<std::chrono::microseconds>(Steady::now() - before);
    writeRecord(Record::Kind::Started, static_cast<std::uint64_t>(took.count()));
    for (std::uint64_t i = 0; i < options_.threads; ++i)
      std::thread([this, i] { executeRange(i); }).detach();
  }

  void performAll() {
    std::uint64_t performed = 0;
    for (std::string line; std::getline(std::cin, line);) {
      performOne(line);
      writeRecord(Record::Kind::Performed, ++performed);
    }
  }

 private:
  void execute(std::uint64_t range, std::uint64_t index) {
    const std::uint64_t number = options_.first + range * kNumbersPerRange + index;
    executeNumbered(*serverSide_, number, options_.padBytes);
    writeRecord(Record::Kind::Executed, number);
  }

  void executeRange(std::uint64_t range) {
    for (std::uint64_t i = 0; i < kNumbersPerRange; ++i) {
      execute(range, i);
      std::this_thread::sleep_for(i < options_.events ? std::chrono::microseconds(options_.gapUs)
                                                      : kSlowGap);
    }
  }

  void performOne(const std::string& line) {
    switch (line.front()) {
      case command::kExecute:
        return execute(kCommanded, commanded_++);
      case command::kSetClock:
        return clock_->set(std::stoll(line.substr(1)));
      case command::kFork:
        return forkSleeper();
      case command::kForkExec:
        return recordInherited(forkExec());
      case command::kSpawn:
        return recordInherited(spawn());
      case command::kFlush:
        writeRecord(Record::Kind::Emptied, flush() ? 1 : 0);
        return;
      case command::kPurge:
        return JXNetworkManager::sharedInstance().purge();
      case command::kErase:
        JXStoredData::eraseAll();
        return;
      case command::kDisable:
        return serverSide_->disableServerSide();
      case command::kEnable:
        return serverSide_->enableServerSide();
      default:
        throw std::runtime_error("unknown command: " + line);
    }
  }

  static bool flush() { return JXNetworkManager::sharedInstance().flush(std::chrono::seconds(50)); }

  // The child outlives a kill of this process. Its parent does not wait for it.
  void forkSleeper() {
    const std::uint64_t number = options_.first + kForked * kNumbersPerRange + forked_++;
    if (::fork() != 0) return;
    // The driver reads the output until the last process closes it.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
      ::close(stream);
    executeNumbered(*serverSide_, number, options_.padBytes);
    JXNetworkManager::sharedInstance().flush(milliseconds(1));
    ::sleep(kChildSleepS);
    ::_exit(0);
  }

  pid_t forkExec() const {
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::execl("/proc/self/exe", "jx_soak", "inherited", "--state", options_.state.c_str(), nullptr);
    ::_exit(127);
  }

  pid_t spawn() const {
    std::vector<std::string> words{"jx_soak", "inherited", "--state", options_.state};
    std::vector<char*> pointers;
    for (std::string& word : words)
      pointers.push_back(word.data());
    pointers.push_back(nullptr);
    pid_t child = -1;
    ::posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, pointers.data(), environ);
    return child;
  }

  static void recordInherited(pid_t child) {
    int status = -1;
    const bool exited =
        child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) != 0;
    if (!exited) throw std::runtime_error("a child did not exit");
    writeRecord(Record::Kind::Inherited, static_cast<std::uint64_t>(WEXITSTATUS(status)));
  }

  const WorkerOptions options_;
  const std::shared_ptr<SettableClock> clock_ = std::make_shared<SettableClock>();
  std::shared_ptr<ServerSide> serverSide_;
  std::uint64_t commanded_ = 0;
  std::uint64_t forked_ = 0;
};

bool isNetworkSocket(int descriptor) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  return ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
         address.ss_family != AF_UNIX;
}

}  // namespace

int perform(const WorkerOptions& options) {
  if (options.descriptors != 0) {
    const rlimit limit{options.descriptors, options.descriptors};
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0) return 4;
  }
  // Never destroyed: its threads run until the process ends.
  static auto* const worker = new CommandedWorker(options);
  worker->start();
  worker->performAll();
  return 0;
}

int inherited(Arguments& arguments) {
  const auto folder = std::filesystem::path(arguments.text("state")).parent_path();
  arguments.expectAllKnown();
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    const std::string file = std::filesystem::read_symlink(entry.path()).string();
    const bool isStored = file.rfind(folder.string() + "/", 0) == 0;
    if (!isStored && !isNetworkSocket(std::stoi(entry.path().filename().string()))) continue;
    std::cerr << "inherited: " << file << "\n";
    ++count;
  }
  return count;
}

}  // namespace jx::soak
