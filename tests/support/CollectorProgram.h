// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <set>
#include <string>

#include "jx/core/json/JXJsonValue.h"
#include "tests/support/ChildProcess.h"

namespace jx::test {

/// `jx collector` as a child process, on ports that were free, ended with this object. Throws
/// std::runtime_error when it does not start or does not answer.
class CollectorProgram {
 public:
  /// `folder` is where it keeps its things; it exists. Port 0 takes any that is free.
  CollectorProgram(const std::string& program, const std::string& folder, int port = 0);

  /// "https://127.0.0.1:PORT".
  std::string address() const;
  std::string caFile() const { return portText("ca"); }

  /// The events that arrived, in order of arrival, as the JSON interface tells them.
  JXJsonArray events() const;
  /// The body of the event at this place.
  JXJsonObject body(std::size_t index) const;
  std::size_t eventCount() const { return events().size(); }
  /// The event ids that arrived.
  std::set<std::string> eventIds() const;
  /// How often an event came again.
  std::string repeats() const;

 private:
  std::string portText(const char* key) const;
  JXJsonObject ask(const std::string& path) const;

  ChildProcess process_;
  JXJsonObject ports_;
};

}  // namespace jx::test
