// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr std::uint64_t kMaxDeliveryMs = 540'000;

class Outage {
 public:
  Outage(std::uint64_t requests, Report& report) : requests_(requests), report_(report) {
    server_.refuse();
    options_.state = folder_.path();
    options_.host = server_.url("");
    options_.caFile = server_.caFile();
  }

  void deliverInTheSameProcess() {
    report_.say("the same process:");
    options_.events = requests_;
    options_.awaitGo = true;
    options_.deliverMs = kMaxDeliveryMs;
    const std::unique_ptr<ChildProcess> worker = startWorker(options_);
    if (!worker->waitForOutput(prefixOf(Record::Kind::Reported), std::chrono::minutes(10))) {
      throw std::runtime_error("the worker did not execute its events within 10 minutes");
    }
    server_.accept();
    resume(*worker);
    const std::vector<Record> records = finish(*worker);
    reportQueued(records);
    reportDelivered(records);
  }

  void deliverAfterARestart() {
    report_.say("after a restart:");
    options_.events = requests_;
    reportQueued(runWorker(options_));
    server_.accept();
    options_.events = 0;
    options_.deliverMs = kMaxDeliveryMs;
    const std::vector<Record> records = runWorker(options_);
    report_.say(
        "start with the queue of the previous process " +
        rounded(static_cast<double>(lastOf(records, Record::Kind::Started).value_or(0)) / 1'000) +
        " ms");
    reportDelivered(records);
  }

 private:
  void reportQueued(const std::vector<Record>& records) {
    const std::size_t executed = numbersOf(records, Record::Kind::Executed).size();
    report_.promise(executed == requests_, "events executed " + std::to_string(executed));
    report_.say("peak memory with all events queued " +
                std::to_string(numbersOf(records, Record::Kind::Memory).at(0)) + " KiB, attempts " +
                std::to_string(numbersOf(records, Record::Kind::Attempts).at(0)));
  }

  void reportDelivered(const std::vector<Record>& records) {
    const double seconds =
        static_cast<double>(lastOf(records, Record::Kind::Flushed).value_or(0)) / 1'000'000;
    report_.say("delivered in " + rounded(seconds, 2) + " s, " +
                rounded(static_cast<double>(requests_) / seconds, 0) +
                " requests per second, peak memory " +
                std::to_string(lastOf(records, Record::Kind::Memory).value_or(0)) + " KiB");
    const Tally tally = tallyOf(server_, {folder_.path()});
    report_.promise(lastOf(records, Record::Kind::Emptied) == 1, "the queue is empty");
    report_.promise(tally.accepted.size() == requests_ && *tally.accepted.rbegin() == requests_ - 1,
                    "distinct events delivered " + std::to_string(tally.accepted.size()));
    report_.promise(tally.repeats == 0 && tally.bodies == requests_,
                    "delivered twice " + std::to_string(tally.repeats));
  }

  const std::uint64_t requests_;
  Report& report_;
  const test::TemporaryFolder folder_;
  test::JXTestServer server_;
  WorkerOptions options_;
};

}  // namespace

int outage(Arguments& arguments) {
  const std::uint64_t requests = std::max<std::uint64_t>(arguments.number("requests", 100'000), 1);
  arguments.expectAllKnown();
  Report report("outage");
  Outage(requests, report).deliverInTheSameProcess();
  Outage(requests, report).deliverAfterARestart();
  return report.status();
}

}  // namespace jx::soak
