// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// HTTP API to arm, show and clear faults.
class FaultsApi {
 public:
  /// `plan` must outlive the server in which this is installed.
  explicit FaultsApi(FaultPlan& plan) : plan_(plan) {}

  /// Adds the routes to `server`. This object must outlive it.
  void install(HttpServer& server);

 private:
  FaultPlan& plan_;
};

}  // namespace jx
