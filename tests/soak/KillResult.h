// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace jx::soak {

/// The results of one run, or the sum of several.
struct KillResult {
  std::uint64_t kills = 0;
  std::uint64_t early = 0;            ///< of these, before the first event
  std::uint64_t parallel = 0;         ///< runs with more than one process
  std::uint64_t threads = 0;          ///< that executed
  std::uint64_t moves = 0;            ///< of the storage folder
  std::uint64_t unfinishedMoves = 0;  ///< after which a process was killed before its next event
  std::uint64_t forks = 0;            ///< children that sleep, and programs
  std::uint64_t clockJumps = 0;
  std::uint64_t executed = 0;  ///< events for which execute returned
  std::uint64_t requests = 0;  ///< read by the server
  std::uint64_t delivered = 0;
  std::uint64_t rejected = 0;     ///< in the dead letters, and not delivered
  std::uint64_t twice = 0;        ///< deliveries of an event that was delivered before
  std::uint64_t interrupted = 0;  ///< delivered although execute did not return before the kill
  std::uint64_t quarantined = 0;  ///< partial writes
  std::uint64_t excused = 0;  ///< events of killed processes in a folder that was moved elsewhere
  std::uint64_t lost = 0;
  double longestStartMs = 0;
  std::uint64_t longestQueue = 0;
  std::string failures;  ///< one line for each failed check

  void add(const KillResult& other);
};

}  // namespace jx::soak
