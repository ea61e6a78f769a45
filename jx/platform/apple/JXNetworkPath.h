// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "jx/platform/JXPlatform.h"

namespace jx {

/// Observes the current connection, as reported by the system. The system reports it on its own
/// queue, first some milliseconds after this object was created. Thread-safe.
class JXNetworkPath {
 public:
  JXNetworkPath();
  ~JXNetworkPath();
  JXNetworkPath(const JXNetworkPath&) = delete;
  JXNetworkPath& operator=(const JXNetworkPath&) = delete;

  /// Returns the type of the current connection; nothing before the first update. The first call
  /// waits for the update, for at most `limit`.
  std::optional<JXNetworkKind> kind(std::chrono::milliseconds limit);

 private:
  struct State;
  struct Monitor;

  const std::shared_ptr<State> state_;  // shared with the handler, which may outlive this object
  const std::unique_ptr<Monitor> monitor_;
};

}  // namespace jx
