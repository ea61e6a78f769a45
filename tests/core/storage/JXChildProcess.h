// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <stdexcept>
#include <string>

namespace jx {

/// A forked process that runs `work` with the write end of a pipe to this process, and exits with
/// the status that `work` returns. The destructor kills the process and waits for it.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<int(int pipe)>& work) {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("pipe");
    pid_ = ::fork();
    if (pid_ < 0) throw std::runtime_error("fork");
    if (pid_ == 0) {
      ::close(ends[0]);
      ::_exit(work(ends[1]));
    }
    ::close(ends[1]);
    pipe_ = ends[0];
  }
  ~ChildProcess() {
    if (pid_ > 0) kill();
    ::close(pipe_);
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Returns the next line that the child wrote; empty after it has closed the pipe.
  std::string readLine() {
    std::string line;
    char byte = 0;
    while (::read(pipe_, &byte, 1) == 1) {
      if (byte == '\n') return line;
      line += byte;
    }
    // A last line without a newline was cut off by the kill.
    return {};
  }

  void kill() {
    ::kill(pid_, SIGKILL);
    wait();
  }
  /// Waits for the child. Returns its exit status, -1 if a signal terminated it.
  int wait() {
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// Call this in the child process.
  static void writeLine(int pipe, const std::string& line) {
    const std::string whole = line + "\n";
    if (::write(pipe, whole.data(), whole.size()) < 0) ::_exit(99);
  }

 private:
  pid_t pid_ = -1;
  int pipe_ = -1;
};

/// Drops superuser privileges, with which no file would be read-only. Returns false on failure.
inline bool becomeOrdinaryUser() {
  constexpr uid_t kNobody = 65534;
  return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

}  // namespace jx
