// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Arms, shows and clears the faults that devices meet.
class FaultsApi {
 public:
  /// The plan outlives the server that this is installed in.
  explicit FaultsApi(FaultPlan& plan) : plan_(plan) {}

  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  FaultPlan& plan_;
};

}  // namespace jx
