// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXFrame.h"

namespace jx {

/// The maximum number of quarantine files in a folder; the oldest are deleted first. They exist for
/// debugging and must not fill a small disk.
constexpr std::size_t kJXMaxQuarantinedFiles = 8;
/// The same for the disk space that they use, in bytes.
constexpr std::uint64_t kJXMaxQuarantinedBytes = 32u * 1024 * 1024;

/// Effects of a quarantine.
struct JXQuarantined {
  bool copied = false;      ///< damaged bytes were copied to a quarantine file
  std::size_t deleted = 0;  ///< older quarantine files that were deleted to make room
};

/// Copies the damaged ranges of `file`, at most kJXMaxQuarantinedBytes, to a new file next to
/// `path`, named after it and the first damaged offset. If that file exists and `replaces` is
/// false, copies nothing: the same damage was found before. Returns an errno value, 0 for success.
int quarantine(const JXFile& file, const std::string& path, const std::vector<JXDamage>& damages,
               bool replaces, JXQuarantined& quarantined);

/// Renames a whole file of the folder to a quarantine file, without reading it. `deleted` receives
/// the number of older quarantine files that were deleted. Returns an errno value, 0 for success.
int quarantineFile(const JXFolder& folder, const std::string& name, std::size_t& deleted);

/// Returns true if `name` is the name of a quarantine file.
bool isQuarantinedName(const std::string& name);

/// Deletes the quarantine files of a folder. Returns an errno value, 0 for success and for a
/// missing folder.
int removeQuarantinedFiles(const std::string& folder);
/// The same for those that are older than `maxAge` at `nowMs`. `deleted` receives their number.
int removeExpiredQuarantinedFiles(const std::string& folder, std::int64_t nowMs,
                                  std::chrono::milliseconds maxAge, std::size_t& deleted);
/// Returns true if a folder contains a quarantine file.
bool hasQuarantinedFiles(const std::string& folder);

}  // namespace jx
