// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace jx {
namespace {

void check(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

std::array<int, 2> makePipe() {
  std::array<int, 2> ends{};
  check(::pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno, "pipe");
  return ends;
}

void closeEnd(int& fd) {
  if (fd >= 0) ::close(fd);
  fd = -1;
}

// Reads once; returns false at the end of the stream.
bool readInto(int fd, std::string& text) {
  std::array<char, 4096> part{};
  const ssize_t count = ::read(fd, part.data(), part.size());
  if (count > 0) text.append(part.data(), static_cast<std::size_t>(count));
  return count > 0 || (count < 0 && errno == EINTR);
}

std::vector<std::string> environmentWith(const std::map<std::string, std::string>& added) {
  std::vector<std::string> result;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text(*entry);
    if (added.count(text.substr(0, text.find('='))) == 0) result.push_back(text);
  }
  for (const auto& [name, value] : added)
    result.push_back(name + "=" + value);
  return result;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts)
    pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

int msUntil(std::chrono::steady_clock::time_point deadline) {
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(0, left.count()));
}

}  // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment, Input input) {
  std::array<int, 2> in{-1, -1};
  if (input == Input::Pipe) in = makePipe();
  std::array<int, 2> out = makePipe();
  std::array<int, 2> err = makePipe();
  posix_spawn_file_actions_t actions;
  check(posix_spawn_file_actions_init(&actions), "posix_spawn_file_actions_init");
  if (input == Input::Pipe) {
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  }
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = environmentWith(environment);
  const int error = posix_spawn(&pid_, program.c_str(), &actions, nullptr, pointersTo(words).data(),
                                pointersTo(variables).data());
  posix_spawn_file_actions_destroy(&actions);
  closeEnd(in[0]);
  closeEnd(out[1]);
  closeEnd(err[1]);
  input_ = in[1];
  output_ = out[0];
  errors_ = err[0];
  if (error != 0) {
    closeEnd(input_);
    closeEnd(output_);
    closeEnd(errors_);
    pid_ = -1;
    check(error, program.c_str());
  }
}

ChildProcess::~ChildProcess() {
  if (pid_ > 0) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
  }
  closeEnd(input_);
  closeEnd(output_);
  closeEnd(errors_);
}

void ChildProcess::signal(int number) const {
  if (pid_ > 0) ::kill(pid_, number);
}

bool ChildProcess::readOutput(Clock::time_point deadline) {
  std::array<pollfd, 2> states{pollfd{output_, POLLIN, 0}, pollfd{errors_, POLLIN, 0}};
  if (output_ < 0 && errors_ < 0) return false;
  const int ready = ::poll(states.data(), states.size(), msUntil(deadline));
  if (ready == 0) return false;
  if (states[0].revents != 0 && !readInto(output_, result_.output)) closeEnd(output_);
  if (states[1].revents != 0 && !readInto(errors_, result_.errors)) closeEnd(errors_);
  return true;
}

bool ChildProcess::waitForText(const std::string& caught, const std::string& text,
                               std::chrono::milliseconds limit) {
  const Clock::time_point deadline = Clock::now() + limit;
  while (caught.find(text) == std::string::npos) {
    if (!readOutput(deadline)) return false;
  }
  return true;
}

bool ChildProcess::waitForOutput(const std::string& text, std::chrono::milliseconds limit) {
  return waitForText(result_.output, text, limit);
}

bool ChildProcess::waitForErrors(const std::string& text, std::chrono::milliseconds limit) {
  return waitForText(result_.errors, text, limit);
}

bool ChildProcess::writeInput(const std::string& text) const {
  // A program that has exited must not end the test with SIGPIPE.
  std::signal(SIGPIPE, SIG_IGN);
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = ::write(input_, text.data() + written, text.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

void ChildProcess::closeInput() { closeEnd(input_); }

ChildProcess::Result ChildProcess::wait(std::chrono::milliseconds limit) {
  const Clock::time_point deadline = Clock::now() + limit;
  while (readOutput(deadline)) {
  }
  // The pipes may close before or after the program ends, so wait for the process itself.
  const int processFd = static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0));
  check(processFd >= 0 ? 0 : errno, "pidfd_open");
  pollfd ended{processFd, POLLIN, 0};
  result_.timedOut = ::poll(&ended, 1, msUntil(deadline)) != 1;
  ::close(processFd);
  if (result_.timedOut) ::kill(pid_, SIGKILL);
  int status = 0;
  ::waitpid(pid_, &status, 0);
  pid_ = -1;
  result_.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result_;
}

ChildProcess::Result ChildProcess::run(const std::string& program,
                                       const std::vector<std::string>& arguments,
                                       std::chrono::milliseconds limit,
                                       const std::map<std::string, std::string>& environment) {
  ChildProcess child(program, arguments, environment);
  return child.wait(limit);
}

ChildProcess::Result ChildProcess::runWithInput(const std::string& program,
                                                const std::vector<std::string>& arguments,
                                                const std::string& input,
                                                std::chrono::milliseconds limit) {
  ChildProcess child(program, arguments, {}, Input::Pipe);
  child.writeInput(input);
  child.closeInput();
  return child.wait(limit);
}

}  // namespace jx
