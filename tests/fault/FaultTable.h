// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "jx/core/transfer/JXDelivery.h"

namespace jx::test {

/// The measured result of one fault.
struct FaultRow {
  std::string order;    ///< position in the table: section and number, for example "1.07"
  std::string fault;    ///< name of the case
  std::string did;      ///< behaviour of the server or the disk
  std::string library;  ///< behaviour of the library
  std::uint64_t delivered = 0;
  std::uint64_t queued = 0;  ///< events queued during the fault
  std::uint64_t rejected = 0;
  std::uint64_t dropped = 0;
};

/// Appends the row to the file that the environment variable JX_FAULT_TABLE names: its position, a
/// tab and a line of Markdown. Does nothing without the variable or if the test has failed.
/// `scripts/fault-table` sorts the lines.
void writeFaultRow(const FaultRow& row);

/// Returns the number of events that the queue dropped, for any reason.
std::uint64_t droppedOf(const JXOutboxCounters& counters);

/// Returns a number and its noun: "1 attempt", "3 attempts".
std::string counted(std::uint64_t number, const std::string& one, const std::string& several);

}  // namespace jx::test
