// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "jx/core/transfer/JXDelivery.h"

namespace jx::test {

/// What one fault came to, as measured in the run that writes it down.
struct FaultRow {
  std::string order;    ///< where the row stands in the table: section and number, as "1.07"
  std::string fault;    ///< what the case is called
  std::string did;      ///< what the server or the disk did
  std::string library;  ///< what the library did
  std::uint64_t delivered = 0;
  std::uint64_t held = 0;  ///< how many were kept while the fault lasted
  std::uint64_t rejected = 0;
  std::uint64_t dropped = 0;
};

/// Appends the row, as a line of Markdown behind its place and a tab, to the file that the
/// environment variable JX_FAULT_TABLE names; without the variable it does nothing. A test that has
/// failed writes none. `scripts/fault-table` puts the lines together.
void writeFaultRow(const FaultRow& row);

/// All that the queue dropped, whatever the reason.
std::uint64_t droppedOf(const JXOutboxCounters& counters);

/// A number and its noun: "1 try", "3 tries".
std::string counted(std::uint64_t number, const std::string& one, const std::string& several);

}  // namespace jx::test
