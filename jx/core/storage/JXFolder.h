// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace jx {

/// Makes the folder and those above it that are missing, for this user only (mode 0700). One that
/// exists is left as it is. Returns an errno value, 0 for success.
int makeFolder(const std::string& path);

/// The names in the folder, in no order. Returns an errno value, 0 for success.
int listFolder(const std::string& path, std::vector<std::string>& names);

/// Waits until the folder's entries (files made, renamed, removed) are on the disk.
int synchronizeFolder(const std::string& path);

/// The folder of a file path: "." when it names none.
std::string folderOf(const std::string& path);

}  // namespace jx
