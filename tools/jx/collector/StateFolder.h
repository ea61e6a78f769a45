// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

#include "tools/jx/Result.h"

namespace jx {

/// The folder in which the collector stores its files. Locked: while this object exists, no other
/// process can open the folder.
class StateFolder {
 public:
  /// Opens the folder. Creates it, accessible to its owner only, when it is missing.
  static Result<StateFolder> open(const std::filesystem::path& path);
  /// Returns $XDG_STATE_HOME/jx-collector, or ~/.local/state/jx-collector when XDG_STATE_HOME is
  /// not an absolute path. Returns an error when HOME is not one either.
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
