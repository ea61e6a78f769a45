// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

#include "tools/jx/Result.h"

namespace jx {

/// The folder in which the collector keeps its things. While this object lives, no other process
/// opens it.
class StateFolder {
 public:
  /// Makes the folder, closed to other users, when it is missing.
  static Result<StateFolder> open(const std::filesystem::path& path);
  /// $XDG_STATE_HOME/jx-collector, or ~/.local/state/jx-collector.
  static Result<std::filesystem::path> defaultPath();

  StateFolder(StateFolder&& other) noexcept;
  StateFolder& operator=(StateFolder&& other) noexcept;
  ~StateFolder();

  const std::filesystem::path& path() const { return path_; }

 private:
  StateFolder(std::filesystem::path path, int lock);

  std::filesystem::path path_;
  int lock_;
};

}  // namespace jx
