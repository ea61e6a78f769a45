// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <string>
#include <vector>

namespace jx {

/// Access control of the web port against foreign web sites, which can send requests through the
/// browser of a user. The Host header must contain an IP address or a name of this machine
/// (prevents DNS rebinding). An Origin header must match the web UI. Requests that change data must
/// have a JSON Content-Type, which foreign pages can send only after a CORS preflight.
class WebGuard {
 public:
  /// `names` are the host names of this machine that a Host header may contain.
  explicit WebGuard(std::vector<std::string> names) : names_(std::move(names)) {}

  /// Returns true when it rejects the request and has set the response.
  bool rejects(const httplib::Request& request, httplib::Response& response) const;

 private:
  const std::vector<std::string> names_;
};

}  // namespace jx
