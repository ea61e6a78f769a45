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

constexpr std::uint64_t kLongestDeliveryMs = 540'000;

class Outage {
 public:
  Outage(std::uint64_t requests, Report& report) : requests_(requests), report_(report) {
    server_.refuse();
    orders_.state = folder_.path();
    orders_.host = server_.url("");
    orders_.caFile = server_.caFile();
  }

  void deliverInTheSameProcess() {
    report_.say("the same process:");
    orders_.events = requests_;
    orders_.awaitGo = true;
    orders_.deliverMs = kLongestDeliveryMs;
    const std::unique_ptr<ChildProcess> worker = startWorker(orders_);
    if (!worker->waitForOutput(beginningOf(Record::Kind::Reported), std::chrono::minutes(10))) {
      throw std::runtime_error("the worker does not come to the end of its events");
    }
    server_.accept();
    go(*worker);
    const std::vector<Record> records = finish(*worker);
    tellQueued(records);
    tellDelivered(records);
  }

  void deliverAfterARestart() {
    report_.say("after a restart:");
    orders_.events = requests_;
    tellQueued(runWorkerToItsEnd(orders_));
    server_.accept();
    orders_.events = 0;
    orders_.deliverMs = kLongestDeliveryMs;
    const std::vector<Record> records = runWorkerToItsEnd(orders_);
    report_.say(
        "start with the queue of the earlier process " +
        rounded(static_cast<double>(lastOf(records, Record::Kind::Started).value_or(0)) / 1'000) +
        " ms");
    tellDelivered(records);
  }

 private:
  void tellQueued(const std::vector<Record>& records) {
    const std::size_t executed = numbersOf(records, Record::Kind::Executed).size();
    report_.promise(executed == requests_, "executed " + std::to_string(executed));
    report_.say("peak memory when all were queued " +
                std::to_string(numbersOf(records, Record::Kind::Memory).at(0)) + " KiB, tries " +
                std::to_string(numbersOf(records, Record::Kind::Tries).at(0)));
  }

  void tellDelivered(const std::vector<Record>& records) {
    const double seconds =
        static_cast<double>(lastOf(records, Record::Kind::Flushed).value_or(0)) / 1'000'000;
    report_.say("delivered in " + rounded(seconds, 2) + " s, " +
                rounded(static_cast<double>(requests_) / seconds, 0) +
                " requests a second, peak memory " +
                std::to_string(lastOf(records, Record::Kind::Memory).value_or(0)) + " KiB");
    const Tally tally = tallyOf(server_, folder_.path());
    report_.promise(lastOf(records, Record::Kind::Emptied) == 1, "the queue is empty");
    report_.promise(tally.taken.size() == requests_ && *tally.taken.rbegin() == requests_ - 1,
                    "delivered distinct " + std::to_string(tally.taken.size()));
    report_.promise(tally.repeats == 0 && tally.bodies == requests_,
                    "delivered twice " + std::to_string(tally.repeats));
  }

  const std::uint64_t requests_;
  Report& report_;
  const test::TemporaryFolder folder_;
  test::JXTestServer server_;
  WorkerOrders orders_;
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
