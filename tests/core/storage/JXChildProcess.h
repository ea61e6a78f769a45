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

/// A forked process that runs `work` with the writing end of a pipe to this one, and ends with the
/// status that `work` returns. Killed and waited for when the object ends.
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

  /// The next line that the child wrote; empty when it has closed the pipe.
  std::string readLine() {
    std::string line;
    char byte = 0;
    while (::read(pipe_, &byte, 1) == 1) {
      if (byte == '\n') return line;
      line += byte;
    }
    // What came before the end without a line's end was torn by the kill.
    return {};
  }

  void kill() {
    ::kill(pid_, SIGKILL);
    wait();
  }
  /// The exit status; -1 when a signal ended the child.
  int wait() {
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// To be called by the child.
  static void writeLine(int pipe, const std::string& line) {
    const std::string whole = line + "\n";
    if (::write(pipe, whole.data(), whole.size()) < 0) ::_exit(99);
  }

 private:
  pid_t pid_ = -1;
  int pipe_ = -1;
};

/// Gives up the rights of the superuser, before whom no file is read-only.
inline bool becomeOrdinaryUser() {
  constexpr uid_t kNobody = 65534;
  return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

}  // namespace jx
