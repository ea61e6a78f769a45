// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "jx/JXServerSide.h"

namespace jx::bench {

/// What a measuring program's application states about itself.
struct HostOptions {
  std::string storageFolder;
  /// By default nobody listens there, so that the queue grows.
  std::string collectionHost = "https://127.0.0.1:1";
  std::string caFile;
  /// False: the bounds of the outbox are those of an application; true: nothing is ever dropped.
  bool keepsAll = false;
  /// The time of day; null: the system's.
  std::shared_ptr<const JXClock> clock;
  JXDeliveryCallback onDelivery;
};

/// Configures the core and makes the process's ServerSide.
std::shared_ptr<ServerSide> startHost(const HostOptions& options);

/// Executes the event and returns the body that was made of it.
std::string bodyOf(ServerSide& serverSide, const std::shared_ptr<JXEvent>& event);

}  // namespace jx::bench
