// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "jx/platform/JXPlatform.h"

namespace jx {

/// Follows the system's own word on which connection is in use. The system tells it on a queue of
/// its own, for the first time some milliseconds after this object was made. Thread-safe.
class JXNetworkPath {
 public:
  JXNetworkPath();
  ~JXNetworkPath();
  JXNetworkPath(const JXNetworkPath&) = delete;
  JXNetworkPath& operator=(const JXNetworkPath&) = delete;

  /// The kind of the connection in use; nothing before the system's first word. The first call
  /// waits for it, at most `limit`.
  std::optional<JXNetworkKind> kind(std::chrono::milliseconds limit);

 private:
  struct Told;

  const std::shared_ptr<Told> told_;  // shared with the handler, which may outlive this object
  void* monitor_ = nullptr;           // owned
};

}  // namespace jx
