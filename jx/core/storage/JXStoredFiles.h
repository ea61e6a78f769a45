// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jx {

/// Returns true if the library writes files of this name in the storage folder. The mark of an
/// erase is not one of them.
bool isStoredFileName(std::string_view name);
/// Returns true if the library writes files of this name in the outbox folder.
bool isOutboxFileName(std::string_view name);

/// Deletes every file that the library wrote in the storage folder and in its outbox folder, also
/// those that other processes have open, and makes the deletion durable. Other files stay. Adds a
/// line to `left` for each file that could not be deleted, and for each folder that could not be
/// read or made durable: its path, and the reason.
void removeStoredFiles(const std::string& folder, std::vector<std::string>& left);

/// Adds a line to `left`: the path, and the reason that the errno value stands for.
void addLeft(const std::string& path, int error, std::vector<std::string>& left);

}  // namespace jx
