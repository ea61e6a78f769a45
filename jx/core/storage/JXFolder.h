// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

/// Makes the folder and those above it that are missing, for this user only (mode 0700). One that
/// exists is left as it is. Returns an errno value, 0 for success.
int makeFolder(const std::string& path);

/// The names in the folder, in no order. Returns an errno value, 0 for success.
int listFolder(const std::string& path, std::vector<std::string>& names);

/// False when the folder was read and holds no name with this ending.
bool mayContainFileWithSuffix(const std::string& path, std::string_view ending);

/// Waits until the folder's entries (files made, renamed, removed) are on the disk.
int synchronizeFolder(const std::string& path);

/// The folder of a file path: "." when it names none.
std::string folderOf(const std::string& path);

/// Tells with one system call whether files may have been made, renamed or removed in a folder.
class JXFolderWatch {
 public:
  explicit JXFolderWatch(std::string path) : path_(std::move(path)) {}

  /// True when the folder may have changed since the last call, and for the first one. Never false
  /// when it has changed.
  bool mayHaveChanged();

 private:
  std::string path_;
  std::int64_t seenNs_ = -1;  ///< the folder's time of change; -1: not known for sure
};

}  // namespace jx
