// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

#include "tools/jx/Result.h"

namespace jx {

/// A temporary folder. The destructor removes it and its content, unless keep() was called.
class TemporaryState {
 public:
  /// Creates a new folder in the system's folder for temporary files.
  static Result<TemporaryState> create();
  ~TemporaryState();
  TemporaryState(TemporaryState&& other) noexcept;
  TemporaryState& operator=(TemporaryState&& other) noexcept;

  const std::filesystem::path& path() const { return path_; }
  /// Keeps the folder when this object is destroyed.
  void keep() { kept_ = true; }

 private:
  explicit TemporaryState(std::filesystem::path path) : path_(std::move(path)) {}

  std::filesystem::path path_;
  bool kept_ = false;
};

}  // namespace jx
