// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXStartGuard.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "jx/core/JXLogger.h"

namespace jx {
namespace {

TEST(JXStartGuard, RunsTheFirstInitialisation) {
  std::atomic<int> state{0};
  EXPECT_TRUE(tryBeginInit(state, "JXExample"));
  EXPECT_EQ(state, 1);
}

TEST(JXStartGuard, DoesNotInitialiseAgain) {
  std::atomic<int> state{2};
  EXPECT_FALSE(tryBeginInit(state, "JXExample"));
  EXPECT_EQ(state, 2);
}

TEST(JXStartGuard, RunsARequestedReinitialisation) {
  std::atomic<int> state{3};
  EXPECT_TRUE(tryBeginInit(state, "JXExample"));
  EXPECT_EQ(state, 1);
}

TEST(JXStartGuard, DoesNotInitialiseForInvalidStates) {
  for (const int other : {-1, 4, 100, -2'147'483'647}) {
    std::atomic<int> state{other};
    EXPECT_FALSE(tryBeginInit(state, "JXExample"));
    EXPECT_EQ(state, other);
  }
}

// Returns the state of a process ("S" asleep, "R" running, "Z" ended) from /proc.
char processState(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  const std::size_t name = content.rfind(')');
  return name == std::string::npos || name + 2 >= content.size() ? '?' : content[name + 2];
}

// Returns whether `work` sleeps forever in a child process. The child writes a byte before and
// after it; while the child sleeps in a system call, it does not proceed to the second byte.
template <typename Work>
testing::AssertionResult neverReturns(Work work) {
  int ends[2];
  if (pipe(ends) != 0) return testing::AssertionFailure() << "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    if (write(ends[1], "b", 1) == 1) work();
    _exit(write(ends[1], "e", 1) == 1 ? 0 : 1);
  }
  close(ends[1]);
  char byte = 0;
  bool began = child > 0 && read(ends[0], &byte, 1) == 1 && byte == 'b';
  // Each check yields the processor to the child. Stops when the child sleeps or has ended.
  char state = processState(child);
  for (long checks = 0; began && state != 'S' && state != 'Z' && checks < 10'000'000; ++checks) {
    usleep(0);
    state = processState(child);
  }
  // Asleep with the pipe open and empty: the work has not returned.
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  const bool silent = read(ends[0], &byte, 1) == -1 && errno == EAGAIN;
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  close(ends[0]);
  if (!began) return testing::AssertionFailure() << "the child did not start";
  if (state != 'S' || !silent) {
    return testing::AssertionFailure() << "work() returned or did not sleep; state " << state;
  }
  return testing::AssertionSuccess();
}

TEST(JXStartGuard, ConcurrentInitialisationNeverReturns) {
  EXPECT_TRUE(neverReturns([] {
    std::atomic<int> state{1};
    tryBeginInit(state, "JXExample");
  }));
}

TEST(JXStartGuard, NeverReturnNeverReturns) {
  EXPECT_TRUE(neverReturns([] { neverReturn("blocked"); }));
}

TEST(JXStartGuard, LogsWhyACallNeverReturns) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    JXLogger::sharedInstance().setSink([&](int level, std::string_view message) {
      const std::string text = std::to_string(level) + " " + std::string(message) + "\n";
      if (write(ends[1], text.data(), text.size()) < 0) _exit(1);
    });
    const JXLogDeferral deferral;  // as during the start of the library
    std::atomic<int> state{kJXInitRunning};
    tryBeginInit(state, "JXExample");
    _exit(0);
  }
  close(ends[1]);
  std::string logged;
  for (char byte = 0; read(ends[0], &byte, 1) == 1 && byte != '\n';)
    logged += byte;
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ends[0]);
  EXPECT_EQ(logged, "2 JXExample: init was called while init was running; the call never returns");
}

TEST(JXOnce, CreatesOneObjectForManyThreads) {
  static std::atomic<int> created{0};
  JXOnce<int> once;
  std::vector<std::thread> threads;
  std::atomic<int> sum{0};
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      sum += once.get([] {
        ++created;
        return new int(7);
      });
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(created, 1);
  delete &once.get([] { return new int(0); });
  EXPECT_EQ(sum, 56);
}

TEST(JXOnce, BlocksACallFromWithinTheCreation) {
  EXPECT_TRUE(neverReturns([] {
    static JXOnce<int> once;
    JXLogger::sharedInstance().setMaxLevel(0);
    once.get([] { return new int(once.get([] { return new int(1); })); });
  }));
}

TEST(JXStartGuard, TestHelperDetectsWorkThatReturns) {
  EXPECT_FALSE(neverReturns([] {
    std::atomic<int> state{2};
    tryBeginInit(state, "JXExample");
  }));
}

}  // namespace
}  // namespace jx
