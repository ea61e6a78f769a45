// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jx/core/storage/JXFile.h"
#include "jx/platform/JXConcat.h"

namespace jx {

/// An open folder. Its files are opened relative to it, so that they are found when the folder is
/// renamed, and never those of another folder at the same path. Immutable, thread-safe.
class JXFolder {
 public:
  enum class Missing { Fail, Create };

  /// Opens the folder. `Missing::Create` creates it and its parents, with mode 0700. Returns null
  /// and sets `error` on failure. Refused is a folder that is a symbolic link, that belongs to
  /// another user, or that other users can write to; with `inner` not empty, this applies to the
  /// folder `path` and to the folder `inner` in it, which is opened.
  static std::shared_ptr<const JXFolder> open(const std::string& path, const std::string& inner,
                                              Missing missing, int& error);
  static std::shared_ptr<const JXFolder> open(const std::string& path, Missing missing,
                                              int& error) {
    return open(path, std::string(), missing, error);
  }
  ~JXFolder();
  JXFolder(const JXFolder&) = delete;
  JXFolder& operator=(const JXFolder&) = delete;

  int descriptor() const { return descriptor_; }
  const std::string& path() const { return path_; }
  std::string pathOf(const std::string& name) const { return concat({path_, "/", name}); }
  /// Returns true when the path still refers to this folder.
  bool isAtPath() const { return JXFile::identityAt(path_) == identity_; }
  /// Lists the names in the folder, in no particular order. Returns an errno value, 0 for success.
  int list(std::vector<std::string>& names) const;
  /// Makes the folder's entries (files created, renamed, removed) durable. Blocks until the disk
  /// has written them. Returns an errno value, 0 for success.
  int synchronize() const;

 private:
  static std::shared_ptr<const JXFolder> openIn(int parent, const std::string& name,
                                                const std::string& path, Missing missing,
                                                int& error);
  explicit JXFolder(std::string path) : path_(std::move(path)) {}

  const std::string path_;
  int descriptor_ = -1;
  JXFileIdentity identity_;
};

/// Returns the absolute form of a path relative to the current folder of the process; "" for "".
std::string absolutePath(const std::string& path);

/// Creates the folder and its missing parents with mode 0700. Leaves an existing folder unchanged.
/// Returns an errno value, 0 for success.
int makeFolder(const std::string& path);

/// Lists the names in the folder, in no particular order. Returns an errno value, 0 for success.
int listFolder(const std::string& path, std::vector<std::string>& names);

/// Makes the folder's entries (files created, renamed, removed) durable. Blocks until the disk has
/// written them. Returns an errno value, 0 for success.
int synchronizeFolder(const std::string& path);

/// Returns the last part of a path.
std::string nameOf(const std::string& path);
/// Returns the parent folder of a path; "." when the path has none.
std::string folderOf(const std::string& path);

/// Detects with one system call whether files may have been created, renamed or removed in a
/// folder. Not synchronised.
class JXFolderWatch {
 public:
  explicit JXFolderWatch(std::string path) : path_(std::move(path)) {}

  enum class Change {
    None,
    Recent,  ///< a change that was reported; there may be others in the same step of the file times
    New
  };
  /// Returns New on the first call. Never returns None when the folder has changed since the last
  /// call.
  Change change();
  /// Returns whether the folder may have changed since the last call.
  bool mayHaveChanged() { return change() != Change::None; }
  /// Makes the next call return New.
  void reset() { seenNs_ = lastNs_ = -1; }

 private:
  std::string path_;
  std::int64_t lastNs_ = -1;  ///< modification time of the folder at the last call
  std::int64_t seenNs_ = -1;  ///< modification time of the folder; -1: not known for certain
};

}  // namespace jx
