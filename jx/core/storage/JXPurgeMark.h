// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace jx {

/// Word from one process to the one that holds a segment, as a small file beside it: the requests
/// that stood in the segment when the mark was made are to be forgotten. It names the segment's
/// inode, so that a later segment of the same name is not meant.
struct JXPurgeMark {
  std::uint64_t inode = 0;
  std::uint64_t size = 0;  ///< of the segment's file when the mark was made
};

/// What the name of a mark's file ends with.
inline constexpr std::string_view kJXPurgeMarkEnding = ".purge";
/// True for the name of a mark's file.
bool isPurgeMarkName(const std::string& name);

/// Makes the mark for the segment as it is now, in place of an older one. Returns an errno value, 0
/// for success; ENOENT when there is no such segment.
int writePurgeMark(const std::string& segmentPath);
/// How much of the segment is to be forgotten, 0 when there is no mark for it.
std::uint64_t readPurgeMark(const std::string& segmentPath);
/// Deletes the mark, if there is one.
void removePurgeMark(const std::string& segmentPath);

}  // namespace jx
