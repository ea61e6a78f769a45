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

/// The floor under one `execute`: RapidJSON writes the same body from values at hand, and one plain
/// write is made for each write that an `execute` was seen to make, into as many files. Which
/// writes those are differs from call to call, so the calls that were looked at are followed in
/// turn.
class ExecuteBaseline {
 public:
  /// The files are made in `folder`. Throws std::runtime_error when RapidJSON does not write `body`
  /// byte for byte, or a file cannot be made.
  ExecuteBaseline(const std::string& body, std::vector<std::vector<Write>> calls,
                  const std::string& folder);
  ~ExecuteBaseline();
  ExecuteBaseline(const ExecuteBaseline&) = delete;
  ExecuteBaseline& operator=(const ExecuteBaseline&) = delete;

  struct Cost {
    Clock::duration json;
    Clock::duration whole;
  };
  Cost run();
  /// Begins the files anew.
  void empty();

 private:
  int fileFor(int descriptor, const std::string& folder);

  JsonBaseline json_;
  std::vector<std::vector<Write>> calls_;  ///< with descriptors of the floor's own files
  std::size_t next_ = 0;
  std::map<int, int> fileFor_;
  std::string bytes_;  ///< for what is no body
};

}  // namespace jx::bench
