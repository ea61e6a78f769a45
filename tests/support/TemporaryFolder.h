// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx::test {

/// A new, empty folder below the system's folder for temporary files; removed with all that it
/// holds when this object ends. Throws when it cannot be made, so that a test fails at once.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Without a '/' at its end.
  const std::string& path() const { return path_; }
  /// The path of `relative` inside the folder; a '/' at its start does not matter.
  std::string path(std::string_view relative) const;

  /// Writes a file, replaces one of that name, and makes the folders above it. Returns its path.
  std::string write(std::string_view relative, std::string_view content) const;
  /// Makes a folder and the folders above it. Returns its path.
  std::string makeFolder(std::string_view relative) const;
  /// Makes a symbolic link with exactly this target, and the folders above it. Returns its path.
  std::string link(std::string_view relative, const std::string& target) const;

 private:
  std::string path_;
};

}  // namespace jx::test
