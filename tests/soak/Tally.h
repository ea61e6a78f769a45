// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "tests/support/JXTestServer.h"

namespace jx::soak {

/// What became of the events: those that a server took, and those that it refused for good.
struct Tally {
  std::set<std::uint64_t> taken;     ///< numbers of the events that were answered with 2xx
  std::set<std::uint64_t> rejected;  ///< numbers of the events among the dead letters
  std::size_t bodies = 0;            ///< requests read by the server, whatever it answered
  std::size_t repeats = 0;           ///< requests taken whose event had been taken before
  std::size_t differing = 0;         ///< requests that differ from an earlier one of their event
  std::size_t renamed = 0;           ///< events that came under more than one event_id
  std::size_t unreadable = 0;        ///< bodies that hold no number

  bool holds(std::uint64_t number) const {
    return taken.count(number) != 0 || rejected.count(number) != 0;
  }
  std::size_t distinct() const;
};

/// Counts what the server received, and the dead letters in a storage folder.
Tally tallyOf(const test::JXTestServer& server, const std::string& state);

/// The numbers of the events that wait in a storage folder, in order.
std::vector<std::uint64_t> queuedIn(const std::string& state);
/// How many requests wait there.
std::size_t queueLengthIn(const std::string& state);
/// How many files of a storage folder hold bytes that were set aside as damaged.
std::size_t setAsideIn(const std::string& state);

/// How many of the numbers are missing in the tally.
std::size_t missing(const std::vector<std::uint64_t>& numbers, const Tally& tally);

}  // namespace jx::soak
