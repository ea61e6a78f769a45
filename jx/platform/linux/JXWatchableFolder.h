// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// Returns whether the system reports every change of this folder to a watch (inotify): the path
/// does not end with a symbolic link, this process may read the folder, and it is on a file system
/// of this machine that cannot delete a folder with files.
bool isWatchableFolder(const char* path);

}  // namespace jx
