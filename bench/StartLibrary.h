// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "jx/JXServerSide.h"

namespace jx::bench {

/// The configuration of the library in a benchmark.
struct LibraryOptions {
  std::string storageFolder;
  /// By default no server listens there, so that the queue grows.
  std::string collectionHost = "https://127.0.0.1:1";
  std::string caFile;
  /// False: the default queue limits; true: no event is ever dropped.
  bool keepsAll = false;
  /// The wall clock; null for the system clock.
  std::shared_ptr<const JXClock> clock;
  JXDeliveryCallback onDelivery;
};

/// Configures the core and creates the ServerSide of this process.
std::shared_ptr<ServerSide> startLibrary(const LibraryOptions& options);

/// Executes the event and returns its body.
std::string bodyOf(ServerSide& serverSide, const std::shared_ptr<JXEvent>& event);

}  // namespace jx::bench
