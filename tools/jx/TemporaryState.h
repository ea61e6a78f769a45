// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

#include "tools/jx/Result.h"

namespace jx {

/// A new folder for files that are of no use once the program has ended: removed with this object,
/// with all that it holds, unless it is to be kept.
class TemporaryState {
 public:
  static Result<TemporaryState> make();
  ~TemporaryState();
  TemporaryState(TemporaryState&& other) noexcept;
  TemporaryState& operator=(TemporaryState&& other) noexcept;

  const std::filesystem::path& path() const { return path_; }
  /// Leaves the folder behind.
  void keep() { kept_ = true; }

 private:
  explicit TemporaryState(std::filesystem::path path) : path_(std::move(path)) {}

  std::filesystem::path path_;
  bool kept_ = false;
};

}  // namespace jx
