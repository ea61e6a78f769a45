// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/FolderMoves.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

#include <cerrno>
#include <stdexcept>

namespace jx::soak {
namespace {

void makeFolder(const std::string& path) {
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) {
    throw std::runtime_error("cannot create " + path);
  }
}

bool rename(const std::string& from, const std::string& to, unsigned flags) {
  return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0;
}

}  // namespace

std::string FolderMoves::pathIn(const std::string& state, bool whole) {
  return whole ? state : state + "/outbox";
}

bool FolderMoves::moveAway(bool whole, bool replace) {
  const std::string elsewhere = folder_.path("moved-" + std::to_string(moved_.size()));
  if (!whole) makeFolder(elsewhere);
  if (!rename(pathIn(state(), whole), pathIn(elsewhere, whole), RENAME_NOREPLACE)) return false;
  // A process may have created it already.
  if (replace) makeFolder(pathIn(state(), whole));
  moved_.push_back({elsewhere, whole, {}});
  return true;
}

bool FolderMoves::moveBack(std::size_t index) {
  Moved& moved = moved_.at(index);
  const std::string here = pathIn(state(), moved.isWhole);
  const std::string elsewhere = pathIn(moved.state, moved.isWhole);
  const bool exchanged = rename(elsewhere, here, RENAME_EXCHANGE);
  if (!exchanged && !rename(elsewhere, here, RENAME_NOREPLACE)) return false;
  moved.continued.clear();
  return true;
}

void FolderMoves::workersContinued(const std::set<std::uint64_t>& workers) {
  for (Moved& moved : moved_)
    moved.continued.insert(workers.begin(), workers.end());
}

}  // namespace jx::soak
