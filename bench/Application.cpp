// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An application that executes events and reports when its ServerSide was ready and how much memory
// it used:
//   jx_bench_application --state FOLDER [--to HOST --ca FILE] [--events N] [--pace-us N]
//                  [--bodies FILE] [--deliver] [--stay]
//
//   --bodies    write the length of each body and the body to FILE
//   --deliver   wait until all events are delivered
//   --stay      exit when standard input ends

#include <chrono>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/Events.h"
#include "bench/Program.h"
#include "bench/Ready.h"
#include "bench/StartLibrary.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "tests/soak/Arguments.h"

namespace jx::bench {
namespace {

// About 3 KB: ten thousand of them do not exceed the limits of the queue.
constexpr int kItems = 4;

void writeBodiesTo(std::ofstream& file) {
  JXNotificationCenter::defaultCenter()->addObserver(
      &file, kJXNotification_HTTPRequest, [&file](const JXNotification& notification) {
        const std::string body =
            notification.userInfo.get(kJXUserInfo_POSTData).string().toStdString();
        file << body.size() << '\n' << body;
      });
}

void executeMany(ServerSide& serverSide, std::uint64_t events, std::chrono::microseconds pace) {
  for (std::uint64_t i = 0; i < events; ++i) {
    if (pace.count() != 0) std::this_thread::sleep_for(pace);
    serverSide.execute(purchase(kItems));
  }
}

void deliver() {
  if (!JXNetworkManager::sharedInstance().flush(std::chrono::seconds(60))) {
    throw std::runtime_error("the events were not delivered within 60 s");
  }
}

int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  LibraryOptions options;
  options.storageFolder = arguments.text("state");
  if (arguments.has("to")) options.collectionHost = arguments.text("to");
  options.caFile = arguments.text("ca");
  const std::uint64_t events = arguments.number("events", 0);
  const std::chrono::microseconds pace(arguments.number("pace-us", 0));
  const std::string bodies = arguments.text("bodies");
  const bool delivers = arguments.has("deliver");
  const bool stays = arguments.has("stay");
  arguments.expectAllKnown();

  const auto serverSide = startLibrary(options);
  ReadyReport report = ReadyReport::now();
  std::ofstream file;
  if (!bodies.empty()) {
    file.open(bodies, std::ios::binary | std::ios::trunc);
    writeBodiesTo(file);
  }
  executeMany(*serverSide, events, pace);
  if (!bodies.empty()) {
    file.close();
    if (!file) throw std::runtime_error("cannot write " + bodies);
  }
  if (delivers) deliver();
  report.print();
  if (stays) {
    while (std::getchar() != EOF) {
    }
  }
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_application", argc, argv, jx::bench::run);
}
