// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jx::soak {

/// What a worker tells its driver, through its standard output. Each record is written with one
/// system call and is short enough for a pipe to take it whole or not at all.
struct Record {
  enum class Kind : char {
    Started = 'S',    ///< microseconds that the start took, the earlier process's queue included
    Executed = 'E',   ///< number of the event for which execute returned
    Processor = 'C',  ///< microseconds of user and system time so far
    Tries = 'T',      ///< requests started so far
    Memory = 'M',     ///< KiB of memory that the process held at most so far
    Reported = 'P',   ///< events are executed and the three figures above are told
    Flushed = 'F',    ///< microseconds that one flush took
    Emptied = 'Q',    ///< how often flush said that the queue is empty
    Leaving = 'X',    ///< nanoseconds of the monotonic clock as main is left
    Unable = 'U',     ///< errno: the system does not let the worker set up what was asked for
  };
  Kind kind = Kind::Started;
  std::uint64_t number = 0;
};

/// Worker: writes a record to standard output.
void writeRecord(Record::Kind kind, std::uint64_t number);

/// Driver: the whole records in what was read of a worker's output.
std::vector<Record> recordsIn(const std::string& output);
/// The numbers of the records of one kind, in order.
std::vector<std::uint64_t> numbersOf(const std::vector<Record>& records, Record::Kind kind);
/// The last number of that kind, absent when there is none.
std::optional<std::uint64_t> lastOf(const std::vector<Record>& records, Record::Kind kind);
/// How a record of this kind begins, to be waited for in the output: no number holds a letter.
std::string beginningOf(Record::Kind kind);

}  // namespace jx::soak
