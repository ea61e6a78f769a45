// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace jx {

/// A child process of a test, with captured output. The destructor ends it when it still runs. Use
/// it on one thread.
class ChildProcess {
 public:
  struct Result {
    /// The exit status; 128 plus the signal number when a signal ended the program.
    int status = -1;
    bool timedOut = false;
    std::string output;  ///< standard output
    std::string errors;  ///< standard error
  };

  /// Standard input of the program.
  enum class Input {
    Empty,  ///< nothing
    Pipe,   ///< the data of `writeInput`, until `closeInput`
  };

  /// Starts `program` with `arguments`. Adds `environment` to the test's environment. Throws
  /// std::system_error when the program cannot be started.
  ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
               const std::map<std::string, std::string>& environment = {},
               Input input = Input::Empty);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t pid() const { return pid_; }
  /// Sends a signal to the program.
  void signal(int number) const;
  /// Reads standard output until it contains `text`. Returns false when the program ends or the
  /// time is up first.
  bool waitForOutput(const std::string& text, std::chrono::milliseconds limit);
  /// As `waitForOutput`, for standard error.
  bool waitForErrors(const std::string& text, std::chrono::milliseconds limit);
  /// Returns the standard output that the operations above have read.
  const std::string& output() const { return result_.output; }
  /// Writes to a standard input that is a pipe; waits while the pipe is full. Returns false when
  /// the program has closed it.
  bool writeInput(const std::string& text) const;
  /// Closes the standard input.
  void closeInput();
  /// Reads until the program ends. Kills a program that does not end in time and reports that in
  /// the result.
  Result wait(std::chrono::milliseconds limit);

  /// Starts a program and waits until it ends.
  static Result run(const std::string& program, const std::vector<std::string>& arguments,
                    std::chrono::milliseconds limit,
                    const std::map<std::string, std::string>& environment = {});
  /// As above, with `input` as its standard input.
  static Result runWithInput(const std::string& program, const std::vector<std::string>& arguments,
                             const std::string& input, std::chrono::milliseconds limit);

 private:
  using Clock = std::chrono::steady_clock;

  // Reads available output; returns false when both pipes are closed or the deadline has passed.
  bool readOutput(Clock::time_point deadline);
  bool waitForText(const std::string& caught, const std::string& text,
                   std::chrono::milliseconds limit);

  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
  int errors_ = -1;
  Result result_;
};

}  // namespace jx
