// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace jx {

/// Reads a file, a pipe or a terminal line by line as the lines come, until another descriptor
/// says to stop. Owns neither descriptor.
class LineReader {
 public:
  /// Bounds the memory that a stream without line ends can take.
  static constexpr std::size_t kMaxLineBytes = 16u * 1024 * 1024;

  enum class Result {
    Line,     ///< a line; the last one may lack its end
    TooLong,  ///< a line of more than kMaxLineBytes was passed over
    End,
    Stopped,  ///< `stop` became readable; what was read beyond the last line is kept back
    Failed,   ///< errno tells why
  };

  LineReader(int input, int stop) : input_(input), stop_(stop) {}

  /// Gives the next line without its end, which is a line feed or a carriage return and one.
  Result next(std::string& line);

 private:
  enum class Filling { More, End, Stopped, Failed };

  bool takeLine(std::string& line, bool& tooLong);
  Filling fill();
  bool isStopped(int timeoutMs, bool& hasInput) const;

  int input_;
  int stop_;
  std::string buffer_;
  std::size_t begin_ = 0;     ///< of what was not given yet
  std::size_t searched_ = 0;  ///< no line end stands before this
  bool skipping_ = false;     ///< inside a line that is too long
  bool ended_ = false;
};

}  // namespace jx
