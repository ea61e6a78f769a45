// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace {

// GNUstep reads the folders of a user from this file.
std::string writeConfiguration(const jx::test::TemporaryFolder& home) {
  return home.write(
      "GNUstep.conf",
      "GNUSTEP_USER_CONFIG_FILE=none\nGNUSTEP_USER_DEFAULTS_DIR=" + home.makeFolder("Defaults") +
          "\nGNUSTEP_USER_DIR_LIBRARY=" + home.makeFolder("Library") + "\n");
}

// Runs this program again as a child process with a temporary home folder, so that no test reads or
// writes files of the user. GNUstep reads its configuration before `main`.
int runAtHome(char** argv) {
  const jx::test::TemporaryFolder home;
  ::setenv("GNUSTEP_CONFIG_FILE", writeConfiguration(home).c_str(), 1);
  ::setenv("JX_TEST_HOME", home.path().c_str(), 1);
  const pid_t child = ::fork();
  if (child == 0) {
    ::execv("/proc/self/exe", argv);
    ::_exit(127);
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return 126;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int main(int argc, char** argv) {
  if (std::getenv("JX_TEST_HOME") == nullptr) return runAtHome(argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
