// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

#include "jx/core/storage/JXFolder.h"

namespace jx {

class JXOutboxSegment;

/// The open folder of an outbox, and the file whose bytes are the locks of its segments: a process
/// owns a segment while it has locked the byte at the segment's number. One file descriptor thus
/// holds the locks of any number of segments. The system releases them when the process ends.
struct JXSegmentFolder {
  std::shared_ptr<const JXFolder> folder;
  std::shared_ptr<JXFile> locks;

  /// Opens both; see JXFolder::open. The members are null on failure, which sets `error`.
  static JXSegmentFolder open(const std::string& path, const std::string& inner,
                              JXFolder::Missing missing, int& error);
  static constexpr const char* kLockName = "lock";
};

/// The segments whose files are open, at most `kMax` of them: a process must not use up the file
/// descriptors of the application, however long its queue is.
class JXOpenSegments {
 public:
  static constexpr std::size_t kMax = 2;

  /// Moves a segment to the front; closes the least recently used one beyond the limit.
  void use(JXOutboxSegment& segment) noexcept;
  void remove(const JXOutboxSegment& segment) noexcept;

 private:
  std::array<JXOutboxSegment*, kMax> segments_{};  ///< least recently used first; null if unused
};

}  // namespace jx
