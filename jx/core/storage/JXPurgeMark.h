// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "jx/core/storage/JXFile.h"

namespace jx {

/// The suffix of a purge mark's file name. A purge mark is a file next to a segment. The process
/// that owns the segment discards the requests that the segment contained when the mark was
/// written. The mark contains the segment's inode, so that it does not apply to a later segment of
/// the same name.
inline constexpr std::string_view kJXPurgeMarkSuffix = ".purge";
/// Writes a mark for the current content of the segment, replacing an older mark. Returns an errno
/// value, 0 for success; ENOENT if the segment does not exist.
int writePurgeMark(const std::string& segmentPath);
/// Returns false if the segment has no mark. Costs one system call.
bool mayHavePurgeMark(const std::string& segmentPath);
/// Returns the size of the segment's part to discard, in bytes; 0 if there is no valid mark for the
/// file `segment`. `error` receives the errno value of a mark that cannot be read, else 0.
std::uint64_t readPurgeMark(const std::string& segmentPath, const JXFileIdentity& segment,
                            int& error);
/// Deletes the mark if it exists. Returns an errno value, 0 for success.
int removePurgeMark(const std::string& segmentPath);

}  // namespace jx
