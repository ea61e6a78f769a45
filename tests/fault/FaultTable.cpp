// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/FaultTable.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

namespace jx::test {

void writeFaultRow(const FaultRow& row) {
  const char* const file = ::getenv("JX_FAULT_TABLE");  // NOLINT(concurrency-mt-unsafe)
  if (file == nullptr || ::testing::Test::HasFailure()) return;
  const std::string line = row.order + "\t| " + row.fault + " | " + row.did + " | " + row.library +
                           " | " + std::to_string(row.delivered) + " | " +
                           std::to_string(row.queued) + " | " + std::to_string(row.rejected) +
                           " | " + std::to_string(row.dropped) + " |\n";
  // Tests run in parallel, so each line is appended with one write.
  const int descriptor = ::open(file, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
  const ssize_t written = ::write(descriptor, line.data(), line.size());
  EXPECT_EQ(written, static_cast<ssize_t>(line.size())) << file;
  ::close(descriptor);
}

std::uint64_t droppedOf(const JXOutboxCounters& counters) {
  return counters.droppedTooMany + counters.droppedTooLarge + counters.droppedTooOld +
         counters.droppedNoStorage;
}

std::string counted(std::uint64_t number, const std::string& one, const std::string& several) {
  return std::to_string(number) + " " + (number == 1 ? one : several);
}

}  // namespace jx::test
