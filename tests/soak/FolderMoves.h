// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace jx::soak {

/// A storage folder that is renamed while processes use it.
class FolderMoves {
 public:
  /// A folder that is elsewhere now.
  struct Moved {
    std::string state;  ///< storage folder: the whole one, or one that contains only the outbox
    bool isWhole = true;
    /// First events of the workers that have executed an event after the move. Their events must
    /// have left the folder.
    std::set<std::uint64_t> continued;
  };

  /// Returns the path of the storage folder, which a process may not have created yet.
  std::string state() const { return folder_.path("state"); }
  const std::vector<Moved>& moved() const { return moved_; }

  /// Renames the storage folder, or only the outbox in it. Returns false if there is none. With
  /// `replace`, an empty folder takes its place.
  bool moveAway(bool whole, bool replace);
  /// Moves a folder back, in exchange for the one at its path if there is one. Returns false if it
  /// fails.
  bool moveBack(std::size_t index);
  /// Call it when the workers have each executed an event after the last move.
  void workersContinued(const std::set<std::uint64_t>& workers);

 private:
  static std::string pathIn(const std::string& state, bool whole);

  test::TemporaryFolder folder_;
  std::vector<Moved> moved_;
};

}  // namespace jx::soak
