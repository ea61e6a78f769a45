// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXWatchableFolder.h"

#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace jx {
namespace {

// Not network file systems and FUSE, whose folders are changed elsewhere, and not btrfs, whose
// subvolumes are deleted with their files. <linux/magic.h> lacks some of the numbers.
constexpr std::uint32_t kLocal[] = {
    0xEF53,      // ext2, ext3, ext4
    0x01021994,  // tmpfs
    0x858458F6,  // ramfs
    0x58465342,  // XFS
    0xF2F52010,  // F2FS
    0x24051905,  // UBIFS
    0x72B6,      // JFFS2
    0x794C7630,  // overlayfs
    0x73717368,  // SquashFS
    0xE0F5E1E2,  // EROFS
    0x4D44,      // FAT
};

}  // namespace

bool isWatchableFolder(const char* path) {
  struct stat status {};
  struct statfs system {};
  if (::lstat(path, &status) != 0 || !S_ISDIR(status.st_mode)) return false;
  if (::access(path, R_OK) != 0 || ::statfs(path, &system) != 0) return false;
  const auto type = static_cast<std::uint32_t>(system.f_type);
  return std::find(std::begin(kLocal), std::end(kLocal), type) != std::end(kLocal);
}

}  // namespace jx
