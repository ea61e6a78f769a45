// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx::test {

/// A new empty folder inside the system's temporary folder; the destructor removes it with its
/// contents. Throws when it cannot be created, so that the test fails immediately.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Returns the path, without a trailing '/'.
  const std::string& path() const { return path_; }
  /// Returns the path of `relative` inside the folder; a leading '/' is ignored.
  std::string path(std::string_view relative) const;

  /// Writes or replaces a file and creates its parent folders. Returns its path.
  std::string write(std::string_view relative, std::string_view content) const;
  /// Creates a folder and its parent folders. Returns its path.
  std::string makeFolder(std::string_view relative) const;
  /// Creates a symbolic link with exactly this target, and its parent folders. Returns its path.
  std::string link(std::string_view relative, const std::string& target) const;

 private:
  std::string path_;
};

}  // namespace jx::test
