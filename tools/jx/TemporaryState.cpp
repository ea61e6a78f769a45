// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/TemporaryState.h"

#include <stdlib.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace jx {

Result<TemporaryState> TemporaryState::create() {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  if (error) return Error{"cannot find the folder for temporary files: " + error.message()};
  std::string path = (parent / "jx-XXXXXX").string();
  if (::mkdtemp(path.data()) == nullptr) {
    const std::error_code cause(errno, std::generic_category());
    return Error{"cannot create a folder in " + parent.string() + ": " + cause.message()};
  }
  return TemporaryState(path);
}

TemporaryState::~TemporaryState() {
  std::error_code ignored;
  if (!kept_ && !path_.empty()) std::filesystem::remove_all(path_, ignored);
}

TemporaryState::TemporaryState(TemporaryState&& other) noexcept
    : path_(std::exchange(other.path_, {})), kept_(other.kept_) {}

TemporaryState& TemporaryState::operator=(TemporaryState&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(kept_, other.kept_);
  return *this;
}

}  // namespace jx
