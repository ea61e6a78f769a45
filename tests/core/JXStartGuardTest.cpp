// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXStartGuard.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <string>

namespace jx {
namespace {

TEST(JXStartGuard, TheFirstInitialisationRuns) {
  int state = 0;
  EXPECT_TRUE(tryBeginInit(state));
  EXPECT_EQ(state, 1);
}

TEST(JXStartGuard, WhatStandsIsLeftAlone) {
  int state = 2;
  EXPECT_FALSE(tryBeginInit(state));
  EXPECT_EQ(state, 2);
}

TEST(JXStartGuard, AFreshInitialisationRunsWhenItWasAskedFor) {
  int state = 3;
  EXPECT_TRUE(tryBeginInit(state));
  EXPECT_EQ(state, 1);
}

TEST(JXStartGuard, AnyOtherValueIsLeftAlone) {
  for (const int other : {-1, 4, 100, -2'147'483'647}) {
    int state = other;
    EXPECT_FALSE(tryBeginInit(state));
    EXPECT_EQ(state, other);
  }
}

// State ("S" asleep, "R" running, "Z" ended) of a process, as the system tells it.
char processState(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  const std::size_t name = text.rfind(')');
  return name == std::string::npos || name + 2 >= text.size() ? '?' : text[name + 2];
}

// Runs `work` in a child and tells whether it goes to sleep for good: the child writes a byte
// before, and one behind it. While the child sleeps in a system call it is not on its way to the
// second byte.
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
  // Each look gives the child the processor; it ends when the child sleeps or has ended.
  char state = processState(child);
  for (long looks = 0; began && state != 'S' && state != 'Z' && looks < 10'000'000; ++looks) {
    usleep(0);
    state = processState(child);
  }
  // Asleep with the pipe still open and nothing in it: the work has not returned.
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  const bool silent = read(ends[0], &byte, 1) == -1 && errno == EAGAIN;
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  close(ends[0]);
  if (!began) return testing::AssertionFailure() << "the child did not begin";
  if (state != 'S' || !silent) {
    return testing::AssertionFailure() << "it returned, or never came to rest: " << state;
  }
  return testing::AssertionSuccess();
}

TEST(JXStartGuard, ASecondInitialisationBesideARunningOneNeverReturns) {
  EXPECT_TRUE(neverReturns([] {
    int state = 1;
    tryBeginInit(state);
  }));
}

TEST(JXStartGuard, NeverReturnNeverReturns) {
  EXPECT_TRUE(neverReturns([] { neverReturn(); }));
}

TEST(JXStartGuard, TheCheckAboveSeesWorkThatReturns) {
  EXPECT_FALSE(neverReturns([] {
    int state = 2;
    tryBeginInit(state);
  }));
}

}  // namespace
}  // namespace jx
