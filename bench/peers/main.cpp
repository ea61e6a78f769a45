// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An application that queues events in one of the ways in which telemetry SDKs do, and prints one
// JSON document:
//   jx_bench_peer_KIND --state FOLDER [--body FILE] [--wal] [--to HOST --ca FILE]
//                      [--events N] [--pace-us N] [--inspect N] [--deliver] [--kill]
//
//   --body      the event, as jx_bench_application --bodies writes it
//   --inspect   execute N more events and report the number of writes to files per event
//   --deliver   wait until all events are delivered, and include that in the processor time
//   --kill      kill this process directly after the last call instead of printing

#include <sys/types.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/Program.h"
#include "bench/Samples.h"
#include "bench/Usage.h"
#include "bench/WriteLog.h"
#include "bench/peers/Queue.h"
#include "tests/soak/Arguments.h"

namespace jx::bench {
namespace {

struct Plan {
  std::uint64_t events = 0;
  std::chrono::microseconds pace{0};
  std::uint64_t inspected = 0;
  bool delivers = false;
  bool kills = false;

  void waitForTurn() const {
    if (pace.count() != 0) std::this_thread::sleep_for(pace);
  }
};

// Returns the first body of the file: its length, a line feed and the body.
std::string readBody(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::size_t length = 0;
  file >> length;
  file.ignore(1);
  std::string body(length, '\0');
  if (!file.read(body.data(), static_cast<std::streamsize>(length))) {
    throw std::runtime_error("no body in " + path);
  }
  return body;
}

double writesPerEvent(Queue& queue, const Plan& plan) {
  std::size_t writes = 0;
  for (std::uint64_t i = 0; i < plan.inspected; ++i) {
    plan.waitForTurn();
    const WriteLog log;
    queue.execute();
    writes += log.writes().size();
  }
  return static_cast<double>(writes) / static_cast<double>(plan.inspected);
}

void measure(Queue& queue, const Plan& plan) {
  const long readyKib = memoryKib("VmHWM:");
  Samples samples;
  samples.reserve(plan.events);
  const Usage before = Usage::now();
  for (std::uint64_t i = 0; i < plan.events; ++i) {
    plan.waitForTurn();
    const Clock::time_point begin = Clock::now();
    queue.execute();
    samples.add(Clock::now() - begin);
  }
  if (plan.kills) ::kill(::getpid(), SIGKILL);
  if (plan.delivers) queue.flush();
  const Usage used = Usage::now() - before;
  const auto events = static_cast<double>(plan.events);
  std::printf(R"({"ready_kib": %ld)", readyKib);
  if (plan.events != 0) {
    std::printf(R"(, "p50": %.3f, "p99": %.3f, "longest": %.3f, "cpu": %.3f, "per_second": %.1f)",
                samples.at(0.5), samples.at(0.99), samples.at(1), used.processorMs * 1'000 / events,
                events * 1'000 / used.wholeMs);
  }
  if (plan.inspected != 0) std::printf(R"(, "writes": %.3f)", writesPerEvent(queue, plan));
  std::puts("}");
}

int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  QueueOptions options;
  options.folder = arguments.text("state");
  // By default no server listens there.
  options.host = arguments.has("to") ? arguments.text("to") : "https://127.0.0.1:1";
  options.caFile = arguments.text("ca");
  options.wal = arguments.has("wal");
  const std::string bodyFile = arguments.text("body");
  Plan plan;
  plan.events = arguments.number("events", 0);
  plan.pace = std::chrono::microseconds(arguments.number("pace-us", 0));
  plan.inspected = arguments.number("inspect", 0);
  plan.delivers = arguments.has("deliver");
  plan.kills = arguments.has("kill");
  arguments.expectAllKnown();

  if (!bodyFile.empty()) options.body = readBody(bodyFile);
  const std::unique_ptr<Queue> queue = createQueue(options);
  measure(*queue, plan);
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_peer", argc, argv, jx::bench::run);
}
