// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Starts two programs alternately and reports how long each took until it was ready and until it
// exited, and how much memory it used:
//   jx_bench_launch ROUNDS FROM INTO PROGRAM BASELINE [OPTION...]
//
// Before each start of PROGRAM, the folder INTO is replaced by a copy of FROM, or is removed if
// FROM is "-". PROGRAM gets the options. This program is small, because memory of a parent process
// slows down the start of its children.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Program.h"
#include "bench/Ready.h"

namespace jx::bench {
namespace {

namespace fs = std::filesystem;

struct Launched {
  ReadyReport report;
  std::int64_t readyNs = 0;
  std::int64_t wholeNs = 0;
};

std::string readAll(int descriptor) {
  std::string text;
  std::array<char, 256> part{};
  ssize_t got = 0;
  while ((got = ::read(descriptor, part.data(), part.size())) > 0)
    text.append(part.data(), static_cast<std::size_t>(got));
  return text;
}

Launched launch(const std::vector<std::string>& command) {
  std::vector<char*> words;
  words.reserve(command.size() + 1);
  for (const std::string& word : command)
    words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot create a pipe");
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);

  const std::int64_t begin = monotonicNs();
  pid_t child = 0;
  const int error = ::posix_spawn(&child, words[0], &actions, nullptr, words.data(), environ);
  ::close(ends[1]);
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + command[0]);
  const std::string line = readAll(ends[0]);
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  const std::int64_t end = monotonicNs();

  Launched launched;
  if (status != 0 || !launched.report.parse(line.c_str())) {
    throw std::runtime_error(command[0] + " failed");
  }
  launched.readyNs = launched.report.readyNs - begin;
  launched.wholeNs = end - begin;
  return launched;
}

// Syncs the copy to disk, so that no write-back runs during the measurement.
void restore(const fs::path& from, const fs::path& into) {
  fs::remove_all(into);
  if (from == "-") return;
  fs::copy(from, into, fs::copy_options::recursive);
  const int folder = ::open(into.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0 || ::syncfs(folder) != 0) throw std::runtime_error("cannot sync " + into.string());
  ::close(folder);
}

void print(const char* name, const Launched& launched, const char* suffix) {
  const ReadyReport& report = launched.report;
  std::printf(R"("%s": {"ready_us": %.1f, "whole_us": %.1f, )", name,
              static_cast<double>(launched.readyNs) / 1'000,
              static_cast<double>(launched.wholeNs) / 1'000);
  std::printf(R"("ready_kib": %ld, "end_kib": %ld, "anonymous_kib": %ld}%s)", report.readyKib,
              report.endKib, report.anonymousKib, suffix);
}

int run(const std::vector<std::string>& words) {
  if (words.size() < 5) {
    std::fputs("usage: jx_bench_launch ROUNDS FROM INTO PROGRAM BASELINE [OPTION...]\n", stderr);
    return 2;
  }
  const long rounds = std::strtol(words[0].c_str(), nullptr, 10);
  std::vector<std::string> program{words[3]};
  program.insert(program.end(), words.begin() + 5, words.end());
  const std::vector<std::string> baseline{words[4]};
  std::puts("[");
  // The first round only fills the page cache.
  for (long round = -1; round < rounds; ++round) {
    const Launched own = (restore(words[1], words[2]), launch(program));
    const Launched under = launch(baseline);
    if (round < 0) continue;
    std::printf("{");
    print("program", own, ", ");
    print("baseline", under, round + 1 < rounds ? "},\n" : "}\n");
  }
  std::puts("]");
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_launch", argc, argv, jx::bench::run);
}
