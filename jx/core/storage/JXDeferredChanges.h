// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace jx {

class JXDefaultsFile;

/// Marks the time in which this thread composes and stores a request. The values that the request
/// changes (JXUserDefaults::Changes) are not written to their file: the outbox writes them with the
/// request, in one write. If it does not, they are written at the end of the scope. Scopes may be
/// nested: an observer of a request may execute another event.
class JXDeferredChanges {
 public:
  JXDeferredChanges() noexcept;
  ~JXDeferredChanges();
  JXDeferredChanges(const JXDeferredChanges&) = delete;
  JXDeferredChanges& operator=(const JXDeferredChanges&) = delete;

  /// Returns the innermost scope of this thread, or null.
  static JXDeferredChanges* current() noexcept;

  /// Called by the file when the scope has changed values that are in memory only.
  void defer(JXDefaultsFile& file) noexcept { file_ = &file; }
  /// Replaces `payload` with the changes to be stored with a request; empty if there are none.
  void encode(std::string& payload) noexcept;
  /// Called when the changes were stored with a request.
  void stored() noexcept;

 private:
  JXDeferredChanges* const outer_;
  JXDefaultsFile* file_ = nullptr;  ///< whose changes are neither written nor stored
  std::uint64_t encoded_ = 0;       ///< the number to be passed to JXDefaultsFile::changesStored
};

}  // namespace jx
