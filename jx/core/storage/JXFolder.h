// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

/// Creates the folder and its missing parents with mode 0700. Leaves an existing folder unchanged.
/// Returns an errno value, 0 for success.
int makeFolder(const std::string& path);

/// Lists the names in the folder, in no particular order. Returns an errno value, 0 for success.
int listFolder(const std::string& path, std::vector<std::string>& names);

/// Returns false when the folder was read and contains no name with this suffix; true otherwise.
bool mayContainFileWithSuffix(const std::string& path, std::string_view suffix);

/// Makes the folder's entries (files created, renamed, removed) durable. Blocks until the disk has
/// written them. Returns an errno value, 0 for success.
int synchronizeFolder(const std::string& path);

/// Returns the parent folder of a path; "." when the path has none.
std::string folderOf(const std::string& path);

/// Detects with one system call whether files may have been created, renamed or removed in a
/// folder. Not synchronised.
class JXFolderWatch {
 public:
  explicit JXFolderWatch(std::string path) : path_(std::move(path)) {}

  /// Returns true on the first call, and when the folder may have changed since the last call.
  /// Never returns false when it has changed.
  bool mayHaveChanged();

 private:
  std::string path_;
  std::int64_t seenNs_ = -1;  ///< modification time of the folder; -1: not known for certain
};

}  // namespace jx
