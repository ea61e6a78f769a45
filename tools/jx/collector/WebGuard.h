// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <string>
#include <vector>

namespace jx {

/// Decides who may speak to the page's port. A foreign web site reaches it through the browser of
/// whoever visits it, so: the machine must be addressed by one of its names or by an IP address; a
/// page that names its origin must be our own; and what changes something must say that it sends
/// JSON, which a foreign page cannot without asking first.
class WebGuard {
 public:
  /// `names` are host names under which the machine may be addressed.
  explicit WebGuard(std::vector<std::string> names) : names_(std::move(names)) {}

  /// True when it has set an answer, which is a refusal.
  bool refuses(const httplib::Request& request, httplib::Response& response) const;

 private:
  const std::vector<std::string> names_;
};

}  // namespace jx
