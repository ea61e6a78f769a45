// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

#include "tools/jx/Result.h"

namespace jx {

/// The folder in which a process stores its files. Locked: while this object exists, no other
/// process can open the folder.
class StateFolder {
 public:
  /// Opens the folder. Creates it, accessible to its owner only, when it is missing. `user` is the
  /// kind of process that the error about a locked folder names.
  static Result<StateFolder> open(const std::filesystem::path& path,
                                  const std::string& user = "collector");
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
