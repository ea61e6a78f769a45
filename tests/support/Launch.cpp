// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Launch.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace jx::test {
namespace {

struct Child {
  pid_t pid = -1;
  int pipe = -1;
};

Child forked(const std::function<void(int pipe)>& work, Ending ending = Ending::Kill) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("cannot create a pipe");
  // Otherwise both processes would write the buffered output.
  std::fflush(nullptr);
  const pid_t pid = ::fork();
  if (pid < 0) throw std::runtime_error("cannot create a process");
  if (pid == 0) {
    ::close(ends[0]);
    work(ends[1]);
    if (ending == Ending::Exit) std::exit(0);  // NOLINT(concurrency-mt-unsafe)
    ::_exit(0);
  }
  ::close(ends[1]);
  return {pid, ends[0]};
}

void writeAll(int pipe, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = ::write(pipe, text.data() + written, text.size() - written);
    if (count <= 0) ::_exit(99);
    written += static_cast<std::size_t>(count);
  }
}

std::string readAll(int pipe) {
  std::string text;
  char bytes[4096];
  for (ssize_t count = 0; (count = ::read(pipe, bytes, sizeof bytes)) > 0;)
    text.append(bytes, static_cast<std::size_t>(count));
  return text;
}

// Returns the state letter and the processor time of the process from /proc.
struct Activity {
  char state = '?';
  unsigned long ticks = 0;
};

Activity activityOf(pid_t pid) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
  std::string line;
  std::getline(file, line);
  std::istringstream rest(line.substr(line.rfind(')') + 1));
  Activity activity;
  rest >> activity.state;
  std::string skipped;
  for (int i = 0; i < 10; ++i)
    rest >> skipped;
  rest >> activity.ticks;
  return activity;
}

bool isReadable(int pipe) {
  pollfd polled{pipe, POLLIN, 0};
  return ::poll(&polled, 1, 10) > 0;
}

}  // namespace

std::string inLaunch(const std::function<std::string()>& work, Ending ending) {
  const Child child = forked(
      [&](int pipe) {
        try {
          writeAll(pipe, work());
        } catch (const std::exception& error) {
          writeAll(pipe, std::string("(threw ") + error.what() + ")");
        }
      },
      ending);
  const std::string text = readAll(child.pipe);
  ::close(child.pipe);
  int status = 0;
  ::waitpid(child.pid, &status, 0);
  if (status != 0) return "(ended with status " + std::to_string(status) + ")" + text;
  return text;
}

bool neverReturns(const std::function<void()>& prepare, const std::function<void()>& call) {
  const Child child = forked([&](int pipe) {
    prepare();
    writeAll(pipe, "b");
    call();
    writeAll(pipe, "r");
  });
  char byte = 0;
  const bool wasBegun = ::read(child.pipe, &byte, 1) == 1 && byte == 'b';
  bool staysAway = false;
  const unsigned long before = activityOf(child.pid).ticks;
  // A sleeping thread has no other reason to sleep; a busy one uses processor time.
  while (wasBegun && !staysAway && !isReadable(child.pipe)) {
    const Activity now = activityOf(child.pid);
    staysAway = now.state == 'S' || now.ticks > before + 100;
  }
  // It may sleep after the call, while it writes that the call returned.
  if (staysAway && isReadable(child.pipe)) staysAway = false;
  ::kill(child.pid, SIGKILL);
  ::waitpid(child.pid, nullptr, 0);
  ::close(child.pipe);
  if (!wasBegun) throw std::runtime_error("the process ended before the call");
  return staysAway;
}

}  // namespace jx::test
