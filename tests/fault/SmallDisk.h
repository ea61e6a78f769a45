// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::test {

/// An in-memory file system of a few MiB. It is mounted for this process only and disappears with
/// it.
class SmallDisk {
 public:
  /// Mounts it at `folder`, which must exist. See `isMounted`.
  SmallDisk(std::string folder, int megabytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// Returns false if this user is not allowed to mount; then the folder is an ordinary one.
  bool isMounted() const { return isMounted_; }
  const std::string& path() const { return folder_; }
  /// Uses all free space. Returns false if some is left.
  bool fill() const;
  /// Frees the space that `fill` used.
  void empty() const;

 private:
  const std::string folder_;
  bool isMounted_ = false;
};

/// Switches from the superuser to an ordinary user while it exists, because no folder is read-only
/// for the superuser. Does nothing for an ordinary user.
class OrdinaryUser {
 public:
  /// Makes that user the owner of `folder`.
  explicit OrdinaryUser(const std::string& folder);
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  const bool wasSuperuser_;
};

}  // namespace jx::test
