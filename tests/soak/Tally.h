// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "tests/support/JXTestServer.h"

namespace jx::soak {

/// The results of the events: accepted by the server, or permanently rejected.
struct Tally {
  std::set<std::uint64_t> accepted;  ///< numbers of the events with a 2xx response
  std::set<std::uint64_t> rejected;  ///< numbers of the events in the dead letters
  std::size_t bodies = 0;            ///< requests read by the server, with any response
  std::size_t repeats = 0;           ///< accepted requests whose event was accepted before
  std::size_t differing = 0;         ///< requests that differ from an earlier one of their event
  std::size_t renamed = 0;           ///< events with more than one event_id
  std::size_t unreadable = 0;        ///< bodies without a number

  bool contains(std::uint64_t number) const {
    return accepted.count(number) != 0 || rejected.count(number) != 0;
  }
  std::size_t distinct() const;
};

/// Counts what the server received, and the dead letters in the storage folders.
Tally tallyOf(const test::JXTestServer& server, const std::vector<std::string>& states);

/// Returns the numbers of the events queued in a storage folder, in order. Throws
/// std::runtime_error if the queue cannot be read.
std::vector<std::uint64_t> queuedIn(const std::string& state);
/// Returns the number of requests queued there.
std::size_t queueLengthIn(const std::string& state);
/// Returns the number of quarantine files in a storage folder.
std::size_t quarantinedIn(const std::string& state);

/// Returns how many of the numbers are missing in the tally.
std::size_t missing(const std::vector<std::uint64_t>& numbers, const Tally& tally);

}  // namespace jx::soak
