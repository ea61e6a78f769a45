// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace jx {

/// A program that a test runs as a child, with its output caught. Ended, if it still runs, when
/// this object goes. Used by one thread.
class ChildProcess {
 public:
  struct Result {
    /// The exit status; 128 and the number of the signal when one ended it.
    int status = -1;
    bool timedOut = false;
    std::string output;  ///< standard output
    std::string errors;  ///< standard error
  };

  /// What the program reads from its standard input.
  enum class Input {
    Empty,  ///< nothing
    Pipe,   ///< what `writeInput` gives, until `closeInput`
  };

  /// Starts `program` with `arguments`. `environment` is added to the test's own. Throws
  /// std::system_error when the program cannot be started.
  ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
               const std::map<std::string, std::string>& environment = {},
               Input input = Input::Empty);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t pid() const { return pid_; }
  /// Sends a signal.
  void signal(int number) const;
  /// Reads standard output until `text` has come. False when the program ended, or the time was
  /// up, before it.
  bool waitForOutput(const std::string& text, std::chrono::milliseconds limit);
  /// The same for standard error.
  bool waitForErrors(const std::string& text, std::chrono::milliseconds limit);
  /// Standard output as far as it was read by the operations above.
  const std::string& output() const { return result_.output; }
  /// Writes to a standard input that is a pipe; waits while the pipe is full. False when the
  /// program has closed it.
  bool writeInput(const std::string& text) const;
  /// Ends the standard input.
  void closeInput();
  /// Reads until the program ends; a program that does not end in time is killed and the result
  /// says so.
  Result wait(std::chrono::milliseconds limit);

  /// Starts a program and waits for its end.
  static Result run(const std::string& program, const std::vector<std::string>& arguments,
                    std::chrono::milliseconds limit,
                    const std::map<std::string, std::string>& environment = {});
  /// The same with `input` as its standard input.
  static Result runWithInput(const std::string& program, const std::vector<std::string>& arguments,
                             const std::string& input, std::chrono::milliseconds limit);

 private:
  using Clock = std::chrono::steady_clock;

  // Reads what is there; false when both pipes are closed or the deadline has passed.
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
