// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "MpvProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace {

std::string newFolder() {
  const char* const parent = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe)
  std::string path = std::string(parent != nullptr ? parent : "/tmp") + "/jx-player-XXXXXX";
  if (::mkdtemp(path.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), "mkdtemp");
  }
  return path;
}

pid_t start(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words)
    arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  // Standard input belongs to this program.
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  pid_t pid = -1;
  const int error =
      ::posix_spawnp(&pid, arguments.front(), &actions, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), "cannot start mpv");
  return pid;
}

}  // namespace

MpvProcess::MpvProcess(const std::vector<std::string>& options) : folder_(newFolder()) {
  std::vector<std::string> words{"mpv",
                                 "--no-config",
                                 "--no-terminal",
                                 "--vo=null",
                                 "--ao=null",
                                 "--idle=once",
                                 "--input-ipc-server=" + socketPath()};
  words.insert(words.end(), options.begin(), options.end());
  try {
    pid_ = start(words);
  } catch (...) {
    ::rmdir(folder_.c_str());
    throw;
  }
}

MpvProcess::~MpvProcess() {
  ::kill(pid_, SIGTERM);
  while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
  }
  ::unlink(socketPath().c_str());
  ::rmdir(folder_.c_str());
}
