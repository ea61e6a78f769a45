// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "tests/soak/Arguments.h"

namespace jx::soak {

/// What a worker is to do, in this order. A worker is a process of its own that uses the library as
/// an application does.
struct WorkerOrders {
  std::string state;  ///< storage folder
  std::string host;
  std::string caFile;
  bool quick = false;        ///< pauses and syncs of milliseconds instead of the defaults
  bool silentNames = false;  ///< the only name server never answers (see SilentNames)

  std::uint64_t first = 0;  ///< number of the first event
  std::uint64_t events = 0;
  std::uint64_t gapUs = 0;     ///< pause between two events
  std::uint64_t padBytes = 0;  ///< an event carries up to this many bytes more
  bool awaitTry = false;       ///< waits until a request is under way

  // Then it reports, and goes on:
  bool awaitGo = false;         ///< waits for a line on its standard input
  std::uint64_t flushes = 0;    ///< so many flushes, each after an event of its own,
  std::uint64_t flushMs = 200;  ///< with this deadline
  std::uint64_t deliverMs = 0;  ///< flushes once with this deadline, and reports again
  bool waitForKill = false;
};

/// Calls `visit` with the name and the value of each order: its option on a worker's command line.
template <class Orders, class Visit>
void forEachOrder(Orders& orders, Visit visit) {
  visit("state", orders.state);
  visit("host", orders.host);
  visit("ca", orders.caFile);
  visit("quick", orders.quick);
  visit("silent-names", orders.silentNames);
  visit("first", orders.first);
  visit("events", orders.events);
  visit("gap-us", orders.gapUs);
  visit("pad-bytes", orders.padBytes);
  visit("await-try", orders.awaitTry);
  visit("await-go", orders.awaitGo);
  visit("flushes", orders.flushes);
  visit("flush-ms", orders.flushMs);
  visit("deliver-ms", orders.deliverMs);
  visit("wait-for-kill", orders.waitForKill);
}

/// The worker itself: its main.
int worker(Arguments& arguments);

}  // namespace jx::soak
