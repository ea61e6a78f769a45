// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "tests/consent/Life.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {

/// Names of events.
using Events = std::set<std::string>;

/// Processes that use one storage folder, one after the other or at once, and the server that they
/// send to. Each event is recognised by its name.
///
/// No time decides that a request is held: events of an always-enabled ServerSide, which are newer
/// than the request, have arrived, and the request has not.
class ConsentScenario : public ::testing::Test {
 protected:
  /// Starts a process.
  Life begin() const { return Life(state(), server.url("")); }
  /// Starts a process that creates "this", a ServerSide of the source "key". "this" has the default
  /// behaviour `start`, or "module" for 0 with a consent module.
  Life begin(const std::string& start, const std::string& key = "key") const;
  /// Queues these events in a process that starts like this and is killed. The server must refuse
  /// connections.
  void leave(const std::string& start, const Events& events, const std::string& key = "key") const;
  /// As `leave`, with a ServerSide that is enabled explicitly before.
  void leaveEnabled(const std::string& start, const Events& events,
                    const std::string& key = "key") const;
  /// Writes a queue in the format of version 0.1 before requests had the state of their
  /// ServerSide. Must come before any process. With `waiting`, the events carry the marker.
  void leaveFromOldVersion(const Events& events, const Events& waiting,
                           const std::string& key = "key") const;
  /// Stops a source in a process that is then killed.
  void stop(const std::string& key = "key") const;

  /// Sends three events of an always-enabled ServerSide of the process. Older requests that may be
  /// sent are sent first.
  void fence(Life& life);
  /// Waits until these events have arrived.
  void waitFor(const Events& events);
  /// Returns the events that arrived since the last call, without those of `fence`.
  Events takeArrived();

  /// Returns the files in the outbox whose names begin with "stopped-".
  std::vector<std::string> marks() const;
  /// Waits until there are this many marks: a process writes and removes them on a thread.
  bool waitForMarks(std::size_t count) const;
  std::string state() const { return folder.path("state"); }

  TemporaryFolder folder;
  JXTestServer server{plainHttp()};

 private:
  static JXTestServerOptions plainHttp();
  std::vector<std::string> arrived() const;

  std::size_t taken_ = 0;
  int fences_ = 0;
};

/// Returns "a, b", or "nothing".
std::string describe(const Events& events);

}  // namespace jx::test
