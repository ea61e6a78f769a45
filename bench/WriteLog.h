// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

namespace jx::bench {

/// One system call that wrote to a file.
struct Write {
  int descriptor = -1;
  std::size_t bytes = 0;
};

/// Records the calls of write, writev, pwrite, pwrite64 and pwritev on its thread, from any caller,
/// while it exists. At most one per thread at a time.
class WriteLog {
 public:
  WriteLog();
  ~WriteLog();
  WriteLog(const WriteLog&) = delete;
  WriteLog& operator=(const WriteLog&) = delete;

  const std::vector<Write>& writes() const { return writes_; }
  void clear() { writes_.clear(); }

 private:
  std::vector<Write> writes_;
};

}  // namespace jx::bench
