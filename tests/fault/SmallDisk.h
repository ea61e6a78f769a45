// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::test {

/// A folder that is a disk of its own, of a few MiB, in memory. It is mounted for this process
/// alone and goes with it.
class SmallDisk {
 public:
  /// Mounts it at `folder`, which exists. See `isMounted`.
  SmallDisk(std::string folder, int megabytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// False where the system lets this user mount nothing; the folder is an ordinary one then.
  bool isMounted() const { return isMounted_; }
  const std::string& path() const { return folder_; }
  /// Takes all the room that is left. False when some is left then.
  bool fill() const;
  /// Gives the room back.
  void empty() const;

 private:
  const std::string folder_;
  bool isMounted_ = false;
};

/// The user that is not allowed anything special, while it lives: before the superuser no folder is
/// read-only. Changes nothing for an ordinary user.
class OrdinaryUser {
 public:
  /// Gives `folder` to that user.
  explicit OrdinaryUser(const std::string& folder);
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  const bool wasSuperuser_;
};

}  // namespace jx::test
