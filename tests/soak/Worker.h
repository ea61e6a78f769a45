// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/facade/ServerSide.h"
#include "tests/soak/Arguments.h"

namespace jx::soak {

/// The tasks of a worker, in this order. A worker is a separate process that uses the library like
/// an application does.
struct WorkerOptions {
  std::string state;  ///< storage folder
  std::string host;
  std::string caFile;
  bool quick = false;  ///< retry and sync delays of milliseconds instead of the defaults
  std::uint64_t deadLetters = 10'000'000;  ///< maximum number of dead letters
  bool silentNames = false;  ///< the only name server never responds (see SilentNameServer)

  std::uint64_t first = 0;  ///< number of the first event
  std::uint64_t events = 0;
  std::uint64_t gapUs = 0;     ///< delay between two events
  std::uint64_t padBytes = 0;  ///< maximum number of padding bytes per event
  bool awaitAttempt = false;   ///< waits until a request is in flight

  // After this, the worker reports and continues:
  bool awaitGo = false;         ///< waits for a line on standard input
  std::uint64_t flushes = 0;    ///< number of flushes, each after one more event
  std::uint64_t flushMs = 200;  ///< deadline of these flushes
  std::uint64_t deliverMs = 0;  ///< flushes once with this deadline and reports again

  // Instead of all of the above, from `first`:
  bool takesCommands = false;     ///< executes and performs commands until it is killed
  std::uint64_t threads = 1;      ///< that execute `events` events each, and then some more slowly
  std::uint64_t wallMs = 0;       ///< time of day at the start; 0: that of the system
  std::uint64_t descriptors = 0;  ///< that the process may have open; 0: as many as usual
};

/// Calls `visit` with the name and the value of each command-line option of a worker.
template <class Options, class Visit>
void forEachOption(Options& options, Visit visit) {
  visit("state", options.state);
  visit("host", options.host);
  visit("ca", options.caFile);
  visit("quick", options.quick);
  visit("dead-letters", options.deadLetters);
  visit("silent-names", options.silentNames);
  visit("first", options.first);
  visit("events", options.events);
  visit("gap-us", options.gapUs);
  visit("pad-bytes", options.padBytes);
  visit("await-attempt", options.awaitAttempt);
  visit("await-go", options.awaitGo);
  visit("flushes", options.flushes);
  visit("flush-ms", options.flushMs);
  visit("deliver-ms", options.deliverMs);
  visit("perform", options.takesCommands);
  visit("threads", options.threads);
  visit("wall-ms", options.wallMs);
  visit("descriptors", options.descriptors);
}

/// Returns the configuration of the library in a worker.
JXCoreConfiguration configurationOf(const WorkerOptions& options);
/// Executes an event with this number and up to `padBytes` bytes of padding.
void executeNumbered(ServerSide& serverSide, std::uint64_t number, std::uint64_t padBytes);

/// Runs the worker in this process and returns its exit status.
int worker(Arguments& arguments);

}  // namespace jx::soak
