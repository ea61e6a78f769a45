// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jx::soak {

/// A message from a worker to its driver, on standard output. Each record is written with one
/// system call and is short enough for a pipe to accept it atomically.
struct Record {
  enum class Kind : char {
    Started = 'S',    ///< microseconds of the start, including the previous process's queue
    Executed = 'E',   ///< number of the event for which execute returned
    Processor = 'C',  ///< microseconds of user and system time so far
    Attempts = 'T',   ///< requests started so far
    Memory = 'M',     ///< peak memory so far, KiB
    Reported = 'P',   ///< events are executed and the three values above are reported
    Flushed = 'F',    ///< microseconds of one flush
    Emptied = 'Q',    ///< how often flush reported an empty queue
    Leaving = 'X',    ///< nanoseconds of the monotonic clock when main returns
    Dropped = 'D',    ///< reason (JXDropReason) of a dropped event
    Performed = 'O',  ///< how many commands of the driver are done
    Inherited = 'I',  ///< descriptors of the library in a program that the worker has started
    Usage = 'G',      ///< usage duration after the event that the next record reports
    Unable = 'U',     ///< errno: the system does not permit the requested setup
  };
  Kind kind = Kind::Started;
  std::uint64_t number = 0;
};

/// Returns a record as it is written.
std::string textOf(Record::Kind kind, std::uint64_t number);

/// For workers: writes a record to standard output.
void writeRecord(Record::Kind kind, std::uint64_t number);

/// For the driver: returns the complete records in the output of a worker.
std::vector<Record> recordsIn(const std::string& output);
/// Returns the numbers of the records of one kind, in order.
std::vector<std::uint64_t> numbersOf(const std::vector<Record>& records, Record::Kind kind);
/// Returns the last number of that kind, nullopt if there is none.
std::optional<std::uint64_t> lastOf(const std::vector<Record>& records, Record::Kind kind);
/// Returns the prefix of a record of this kind, for waiting for it in the output: no number
/// contains a letter.
std::string prefixOf(Record::Kind kind);

}  // namespace jx::soak
