// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Measures how long the library takes to deliver the queue of an earlier process, from before its
// start until the queue is empty; or to deliver events while they are executed, from before the
// first one until the queue is empty:
//   jx_bench_drain --state FOLDER --to HOST --ca FILE [--events N [--pace-us N]] [--watch]
//
//   --events   execute a purchase with four items, created before the measurement, N times
//   --watch    also report the highest number of requests in flight, which costs time

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/Events.h"
#include "bench/Program.h"
#include "bench/StartLibrary.h"
#include "bench/Usage.h"
#include "tests/soak/Arguments.h"

namespace jx::bench {
namespace {

// Written on the transfer thread; read when that is idle.
std::uint64_t mostInFlight = 0;

void watch(const JXDelivery&) {
  const JXDeliveryCounters counters = JXNetworkManager::sharedInstance().counters();
  const std::uint64_t ended =
      counters.outbox.delivered + counters.outbox.rejected + counters.failures;
  // The reported request is already counted as delivered, but was in flight a moment ago.
  mostInFlight = std::max(mostInFlight, counters.attempts - ended + 1);
}

void executeMany(ServerSide& serverSide, const std::shared_ptr<JXEvent>& event,
                 std::uint64_t events, std::chrono::microseconds pace) {
  for (std::uint64_t i = 0; i < events; ++i) {
    if (pace.count() != 0) std::this_thread::sleep_for(pace);
    serverSide.execute(event);
  }
}

int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  LibraryOptions options;
  options.storageFolder = arguments.text("state");
  options.collectionHost = arguments.text("to");
  options.caFile = arguments.text("ca");
  const std::uint64_t events = arguments.number("events", 0);
  const std::chrono::microseconds pace(arguments.number("pace-us", 0));
  options.keepsAll = events != 0;
  if (arguments.has("watch")) options.onDelivery = watch;
  arguments.expectAllKnown();

  Usage before = Usage::now();
  const auto serverSide = startLibrary(options);
  if (events != 0) {
    const std::shared_ptr<JXEvent> event = purchase(4);
    before = Usage::now();
    executeMany(*serverSide, event, events, pace);
  }
  if (!JXNetworkManager::sharedInstance().flush(std::chrono::seconds(120))) {
    throw std::runtime_error("the queue was not empty after 120 s");
  }
  const Usage used = Usage::now() - before;
  const JXDeliveryCounters counters = JXNetworkManager::sharedInstance().counters();
  std::printf(R"({"ms": %.2f, "cpu_ms": %.2f, "delivered": %llu, "attempts": %llu, )"
              R"("in_flight": %llu})"
              "\n",
              used.wholeMs, used.processorMs,
              static_cast<unsigned long long>(counters.outbox.delivered),
              static_cast<unsigned long long>(counters.attempts),
              static_cast<unsigned long long>(mostInFlight));
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_drain", argc, argv, jx::bench::run);
}
