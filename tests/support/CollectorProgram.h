// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <set>
#include <string>

#include "jx/core/json/JXJsonValue.h"
#include "tests/support/ChildProcess.h"

namespace jx::test {

/// `jx collector` as a child process on free ports; ended by the destructor. Throws
/// std::runtime_error when it does not start or does not respond.
class CollectorProgram {
 public:
  /// `folder` is an existing folder for its files. Port 0 selects a free port.
  CollectorProgram(const std::string& program, const std::string& folder, int port = 0);

  /// Returns "https://127.0.0.1:PORT".
  std::string address() const;
  std::string caFile() const { return portText("ca"); }

  /// Returns the received events in order of arrival, as reported by the HTTP API.
  JXJsonArray events() const;
  /// Returns the body of the event at `index`.
  JXJsonObject body(std::size_t index) const;
  std::size_t eventCount() const { return events().size(); }
  /// Returns the received event IDs.
  std::set<std::string> eventIds() const;
  /// Returns the number of repeated events.
  std::string repeats() const;

 private:
  std::string portText(const char* key) const;
  JXJsonObject query(const std::string& path) const;

  ChildProcess process_;
  JXJsonObject ports_;
};

}  // namespace jx::test
