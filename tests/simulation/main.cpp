// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "jx/core/JXLogger.h"
#include "tests/simulation/Life.h"

namespace {

using jx::simulation::Life;

constexpr const char* kUsage =
    "usage: jx_simulation [--first N] [--lives N] [--failures N]\n"
    "       jx_simulation --seed N [--verbose]\n"
    "\n"
    "Simulates lives of installations, one for each seed, and prints a line for each life that\n"
    "violates a guarantee. --seed runs one life, --verbose prints its steps.\n"
    "\n"
    "  --first     first seed [1]\n"
    "  --lives     number of lives [1000]\n"
    "  --failures  stop after this number of failed lives [10]\n";

struct Options {
  std::uint64_t first = 1;
  std::uint64_t lives = 1'000;
  std::uint64_t failures = 10;
  bool isVerbose = false;
};

bool readNumber(const char* text, std::uint64_t& number) {
  char* end = nullptr;
  number = text != nullptr ? std::strtoull(text, &end, 10) : 0;
  return text != nullptr && *text != '\0' && *end == '\0';
}

bool readOptions(int count, char** arguments, Options& options) {
  for (int i = 1; i < count; ++i) {
    const std::string_view name = arguments[i];
    if (name == "--verbose") {
      options.isVerbose = true;
      continue;
    }
    std::uint64_t number = 0;
    if (!readNumber(arguments[++i], number)) return false;
    if (name == "--first") {
      options.first = number;
    } else if (name == "--lives") {
      options.lives = number;
    } else if (name == "--failures") {
      options.failures = number;
    } else if (name == "--seed") {
      options.first = number;
      options.lives = 1;
    } else {
      return false;
    }
  }
  return true;
}

// The line that is printed when a life does not end, prepared because a signal handler prints it.
char endlessLife[512];
constexpr unsigned kLifeLimitSeconds = 60;

void prepareLimit(std::uint64_t seed, const char* program) {
  std::snprintf(endlessLife, sizeof endlessLife,
                "life %llu (%s): does not end; replay: %s --seed %llu --verbose\n"
                "simulation: stopped at life %llu\n",
                static_cast<unsigned long long>(seed), Life::kindOf(seed), program,
                static_cast<unsigned long long>(seed), static_cast<unsigned long long>(seed));
  ::alarm(kLifeLimitSeconds);
}

void reportEndlessLife(int) {
  if (::write(STDOUT_FILENO, endlessLife, std::strlen(endlessLife)) < 0) ::_exit(2);
  ::_exit(1);
}

}  // namespace

#if defined(__SANITIZE_THREAD__)
// A virtual process may run during a system call of another one, which holds its own locks.
extern "C" const char* __tsan_default_options() { return "detect_deadlocks=0"; }
#endif

int main(int count, char** arguments) {
  Options options;
  if (!readOptions(count, arguments, options)) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  jx::JXLogger::sharedInstance().setMaxLevel(options.isVerbose ? 6 : 0);
  jx::JXLogger::sharedInstance().setSink([](int level, std::string_view message) {
    std::printf("             log %d: %.*s\n", level, static_cast<int>(message.size()),
                message.data());
  });
  std::signal(SIGALRM, &reportEndlessLife);
  std::uint64_t lived = 0;
  std::uint64_t failed = 0;
  while (lived < options.lives && failed < options.failures) {
    const std::uint64_t seed = options.first + lived++;
    prepareLimit(seed, arguments[0]);
    const std::string violation = Life(seed, options.isVerbose).run();
    if (violation.empty()) continue;
    ++failed;
    std::printf("life %llu (%s): %s; replay: %s --seed %llu --verbose\n",
                static_cast<unsigned long long>(seed), Life::kindOf(seed), violation.c_str(),
                arguments[0], static_cast<unsigned long long>(seed));
    std::fflush(stdout);
  }
  std::printf("simulation: %llu lives, %llu failed\n", static_cast<unsigned long long>(lived),
              static_cast<unsigned long long>(failed));
  return failed == 0 ? 0 : 1;
}
