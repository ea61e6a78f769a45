// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fcntl.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <string_view>

namespace jx::test {

/// Runs `work` in a forked child and returns the status that `work` returns; 128 plus the signal
/// number when a signal ended the child. A child that blocks is ended after 20 seconds.
template <class Work>
int statusOfForkedChild(const Work& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::alarm(20);
    ::_exit(work());
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// A pipe that parents and children write lines to.
class LinePipe {
 public:
  LinePipe() {
    if (::pipe2(ends_, O_CLOEXEC) != 0) ::_exit(99);
  }
  ~LinePipe() {
    ::close(ends_[0]);
    ::close(ends_[1]);
  }
  LinePipe(const LinePipe&) = delete;
  LinePipe& operator=(const LinePipe&) = delete;

  /// Allocates no memory.
  void write(std::string_view line) const {
    char end = '\n';
    const iovec parts[] = {{const_cast<char*>(line.data()), line.size()}, {&end, 1}};
    if (::writev(ends_[1], parts, 2) < 0) ::_exit(99);
  }
  /// Waits for a line and returns it.
  std::string readLine() const {
    std::string line;
    for (char byte = 0; ::read(ends_[0], &byte, 1) == 1 && byte != '\n';)
      line += byte;
    return line;
  }
  /// Returns what was written and not read, without waiting.
  std::string readAll() const {
    ::fcntl(ends_[0], F_SETFL, O_NONBLOCK);
    std::string all;
    char bytes[4096];
    for (ssize_t count = 0; (count = ::read(ends_[0], bytes, sizeof bytes)) > 0;)
      all.append(bytes, static_cast<std::size_t>(count));
    return all;
  }

 private:
  int ends_[2] = {-1, -1};
};

}  // namespace jx::test
