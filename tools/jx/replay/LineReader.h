// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace jx {

/// Reads lines from a file, a pipe or a terminal until the end or until another descriptor becomes
/// readable. Does not own the descriptors.
class LineReader {
 public:
  /// Limits the memory for a stream without line ends.
  static constexpr std::size_t kMaxLineBytes = 16u * 1024 * 1024;

  enum class Result {
    Line,     ///< a line; the last one may have no line end
    TooLong,  ///< a line of more than kMaxLineBytes was skipped
    End,
    Stopped,  ///< `stop` became readable; data after the last line is not returned
    Failed,   ///< errno contains the cause
  };

  LineReader(int input, int stop) : input_(input), stop_(stop) {}

  /// Reads the next line into `line`, without its line end (LF or CR LF).
  Result next(std::string& line);

 private:
  enum class Filling { More, End, Stopped, Failed };

  bool extractLine(std::string& line, bool& tooLong);
  Filling fill();
  bool isStopped(int timeoutMs, bool& hasInput) const;

  int input_;
  int stop_;
  std::string buffer_;
  std::size_t begin_ = 0;     ///< start of the data that was not returned yet
  std::size_t searched_ = 0;  ///< there is no line end before this offset
  bool skipping_ = false;     ///< inside a line that is too long
  bool ended_ = false;
};

}  // namespace jx
