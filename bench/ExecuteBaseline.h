// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <vector>

#include "bench/JsonBaseline.h"
#include "bench/Samples.h"
#include "bench/WriteLog.h"

namespace jx::bench {

/// The baseline of one `execute`: RapidJSON serialises the same body from existing values, followed
/// by one plain write for each recorded write of an `execute`, to as many files. The writes differ
/// from call to call, so the baseline repeats the recorded calls in turn.
class ExecuteBaseline {
 public:
  /// Creates the files in `folder`. Throws std::runtime_error if RapidJSON does not reproduce
  /// `body` byte for byte, or if a file cannot be created.
  ExecuteBaseline(const std::string& body, std::vector<std::vector<Write>> calls,
                  const std::string& folder);
  ~ExecuteBaseline();
  ExecuteBaseline(const ExecuteBaseline&) = delete;
  ExecuteBaseline& operator=(const ExecuteBaseline&) = delete;

  struct Cost {
    Clock::duration json;
    Clock::duration whole;
  };
  /// Runs the baseline once. Throws std::runtime_error if a write fails.
  Cost run();
  /// Empties the files. Throws std::runtime_error on failure.
  void truncateFiles();

 private:
  int fileFor(int descriptor, const std::string& folder);

  JsonBaseline json_;
  std::vector<std::vector<Write>> calls_;  ///< with descriptors of the baseline's files
  std::size_t next_ = 0;
  std::map<int, int> fileFor_;
  std::string bytes_;  ///< written instead of data other than the body
};

}  // namespace jx::bench
