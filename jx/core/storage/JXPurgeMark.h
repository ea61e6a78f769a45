// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace jx {

/// A marker file next to a segment. It tells the process that owns the segment to discard the
/// requests that the segment contained when the mark was written. It contains the segment's inode,
/// so that it does not apply to a later segment of the same name.
struct JXPurgeMark {
  std::uint64_t inode = 0;
  std::uint64_t size = 0;  ///< size of the segment's file when the mark was written
};

/// The suffix of a purge mark's file name.
inline constexpr std::string_view kJXPurgeMarkSuffix = ".purge";
/// Returns true if `name` is the file name of a purge mark.
bool isPurgeMarkName(const std::string& name);

/// Writes a mark for the current content of the segment, replacing an older mark. Returns an errno
/// value, 0 for success; ENOENT if the segment does not exist.
int writePurgeMark(const std::string& segmentPath);
/// Returns the size of the segment's part to discard, in bytes; 0 if there is no valid mark for it.
std::uint64_t readPurgeMark(const std::string& segmentPath);
/// Deletes the mark if it exists.
void removePurgeMark(const std::string& segmentPath);

}  // namespace jx
