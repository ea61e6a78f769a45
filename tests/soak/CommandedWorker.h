// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "tests/soak/Worker.h"

namespace jx::soak {

// The numbers of the events of a worker, from WorkerOptions::first: a range for each thread, one
// for the events that the driver commands, and one for those of forked children.
constexpr std::uint64_t kMaxThreads = 4;
constexpr std::uint64_t kCommanded = kMaxThreads;
constexpr std::uint64_t kForked = kCommanded + 1;
constexpr std::uint64_t kRanges = kForked + 1;
constexpr std::uint64_t kNumbersPerRange = 10'000;
constexpr std::uint64_t kNumbersPerWorker = kRanges * kNumbersPerRange;

/// Commands of the driver to a commanded worker, one per line on its standard input. Each is
/// answered with Record::Kind::Performed.
namespace command {
constexpr char kExecute = 'e';   ///< executes an event
constexpr char kSetClock = 'c';  ///< sets the time of day to the milliseconds that follow
constexpr char kFork = 'f';      ///< forks a child that calls the library and then sleeps
constexpr char kForkExec = 'x';  ///< forks a child that executes a program
constexpr char kSpawn = 's';     ///< starts a program with posix_spawn
constexpr char kFlush = 'w';     ///< flushes, and reports whether the queue is empty
constexpr char kPurge = 'p';     ///< purges the queue
constexpr char kErase = 'r';     ///< erases the stored data
constexpr char kDisable = 'd';   ///< disables the ServerSide
constexpr char kEnable = 'n';    ///< enables the ServerSide
}  // namespace command

/// Executes events on some threads and performs commands, until the process is killed. Returns when
/// its standard input ends.
int perform(const WorkerOptions& options);

/// The program that a commanded worker starts. Returns how many of the library's descriptors it has
/// inherited: files next to the storage folder or in it, and network sockets. libcurl and the
/// sanitizers open others that a program inherits.
int inherited(Arguments& arguments);

}  // namespace jx::soak
