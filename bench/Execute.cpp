// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Measures the duration of each `execute` call on the calling thread, compared with its baseline.
// Prints one JSON document. For each kind of event it contains the persisted data and the
// allocations. For each round it contains the median, the 99th percentile and the longest call in
// microseconds. bench/run.py prints it as a table.

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/AllocationCount.h"
#include "bench/Events.h"
#include "bench/ExecuteBaseline.h"
#include "bench/Program.h"
#include "bench/Samples.h"
#include "bench/StartLibrary.h"
#include "bench/WriteLog.h"
#include "tests/soak/Arguments.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::bench {
namespace {

using Json = rapidjson::Writer<rapidjson::StringBuffer>;

struct Plan {
  std::uint64_t rounds = 0;
  std::uint64_t calls = 0;  ///< measurements per round, and as many baselines
  std::uint64_t block = 0;  ///< consecutive measurements, followed by as many baselines
  std::chrono::microseconds pace{0};
  /// No server accepts the requests, so the growth of the storage must equal the recorded writes.
  bool offline = true;
};

// Number of calls that are inspected to find the data that one execute persists and allocates.
constexpr int kInspectedCalls = 256;

struct Case {
  std::string name;
  std::function<std::shared_ptr<JXEvent>()> create;
  /// Divides the number of calls: large events need fewer.
  std::uint64_t divisor = 1;
};

const std::vector<Case>& allCases() {
  static const std::vector<Case> cases{
      {"custom", customEvent},
      {"purchase_1", [] { return purchase(1); }},
      {"purchase_4", [] { return purchase(4); }},
      {"purchase_20", [] { return purchase(20); }, 2},
      {"purchase_100", [] { return purchase(100); }, 5},
  };
  return cases;
}

/// The data that one execute writes and allocates, from many inspected calls.
struct Traits {
  std::string body;
  std::vector<std::vector<Write>> calls;  ///< the writes of each inspected call
  double allocations = 0;                 ///< the average per call, like all below
  double mallocs = 0;
  double writes = 0;
  double bytes = 0;
};

std::uint64_t bytesIn(const std::string& folder) {
  std::uint64_t bytes = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) bytes += entry.file_size();
  }
  return bytes;
}

class Measurement {
 public:
  Measurement(ServerSide& serverSide, const test::TemporaryFolder& folder, Plan plan)
      : serverSide_(serverSide), folder_(folder), plan_(plan) {}

  void run(const std::vector<Case>& cases, Json& json) {
    std::vector<Traits> traits;
    traits.reserve(cases.size());
    for (const Case& one : cases)
      traits.push_back(traitsOf(one));
    std::vector<std::vector<Round>> rounds(cases.size());
    for (std::uint64_t round = 0; round < plan_.rounds; ++round) {
      for (std::size_t i = 0; i < cases.size(); ++i)
        rounds[i].push_back(measure(cases[i], traits[i]));
    }
    json.StartObject();
    for (std::size_t i = 0; i < cases.size(); ++i) {
      json.Key(cases[i].name.c_str());
      print(traits[i], rounds[i], json);
    }
    json.EndObject();
  }

 private:
  struct Round {
    Samples execute, withBuilding, baseline, baselineJson;
  };

  Traits traitsOf(const Case& one) const {
    // A background change of the queue, such as rewriting a file, invalidates an inspection. The
    // transfer thread writes the persisted values to their own file.
    const std::string queue = folder_.path("state/outbox");
    for (int attempt = 0; attempt < 5; ++attempt) {
      const std::string body = bodyOf(serverSide_, one.create());
      const std::uint64_t before = bytesIn(queue);
      Traits traits = inspect(one);
      traits.body = body;
      const std::uint64_t grown = bytesIn(queue) - before;
      if (!plan_.offline || static_cast<double>(grown) == traits.bytes * kInspectedCalls)
        return traits;
    }
    throw std::runtime_error("the queue grows by more than the recorded writes");
  }

  Traits inspect(const Case& one) const {
    Traits traits;
    std::uint64_t bytes = 0;
    std::uint64_t writes = 0;
    std::uint64_t allocations = 0;
    std::uint64_t mallocs = 0;
    for (int i = 0; i < kInspectedCalls; ++i) {
      waitForTurn();
      const auto event = one.create();
      const WriteLog log;
      allocations -= allocationsOfThisThread();
      mallocs -= mallocsOfThisThread();
      serverSide_.execute(event);
      allocations += allocationsOfThisThread();
      mallocs += mallocsOfThisThread();
      for (const Write& write : log.writes())
        bytes += write.bytes;
      writes += log.writes().size();
      traits.calls.push_back(log.writes());
    }
    traits.allocations = static_cast<double>(allocations) / kInspectedCalls;
    traits.mallocs = static_cast<double>(mallocs) / kInspectedCalls;
    traits.writes = static_cast<double>(writes) / kInspectedCalls;
    traits.bytes = static_cast<double>(bytes) / kInspectedCalls;
    return traits;
  }

  Round measure(const Case& one, const Traits& traits) {
    Round round;
    ExecuteBaseline baseline(traits.body, traits.calls, folder_.path());
    const std::uint64_t calls = std::max(plan_.calls / one.divisor, plan_.block);
    for (std::uint64_t done = 0; done < calls; done += plan_.block) {
      for (std::uint64_t i = 0; i < plan_.block; ++i) {
        waitForTurn();
        executeOnce(one, round);
      }
      for (std::uint64_t i = 0; i < plan_.block; ++i) {
        waitForTurn();
        const ExecuteBaseline::Cost cost = baseline.run();
        round.baseline.add(cost.whole);
        round.baselineJson.add(cost.json);
      }
    }
    baseline.truncateFiles();
    emptyQueue();
    return round;
  }

  void executeOnce(const Case& one, Round& round) {
    const Clock::time_point begin = Clock::now();
    auto event = one.create();
    const Clock::time_point built = Clock::now();
    serverSide_.execute(event);
    const Clock::time_point executed = Clock::now();
    event.reset();
    round.execute.add(executed - built);
    round.withBuilding.add(Clock::now() - begin);
  }

  void waitForTurn() const {
    if (plan_.pace.count() != 0) std::this_thread::sleep_for(plan_.pace);
  }

  // Lets the next round start with an empty queue and an idle disk.
  void emptyQueue() const {
    JXNetworkManager& manager = JXNetworkManager::sharedInstance();
    if (plan_.offline) {
      manager.purge();
    } else if (!manager.flush(std::chrono::seconds(30))) {
      throw std::runtime_error("the queue was not delivered within 30 s");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }

  static void print(Traits& traits, std::vector<Round>& rounds, Json& json) {
    json.StartObject();
    json.Key("body_bytes");
    json.Uint64(traits.body.size());
    json.Key("writes");
    json.Double(traits.writes);
    json.Key("written_bytes");
    json.Double(traits.bytes);
    json.Key("allocations");
    json.Double(traits.allocations);
    json.Key("mallocs");
    json.Double(traits.mallocs);
    json.Key("rounds");
    json.StartArray();
    for (Round& round : rounds) {
      json.StartObject();
      print("execute", round.execute, json);
      print("with_building", round.withBuilding, json);
      print("baseline", round.baseline, json);
      print("baseline_json", round.baselineJson, json);
      json.EndObject();
    }
    json.EndArray();
    json.EndObject();
  }

  static void print(const char* name, Samples& samples, Json& json) {
    json.Key(name);
    json.StartArray();
    for (const double part : {0.5, 0.99, 1.0})
      json.Double(samples.at(part));
    json.EndArray();
  }

  ServerSide& serverSide_;
  const test::TemporaryFolder& folder_;
  const Plan plan_;
};

std::vector<Case> selectedCases(const std::string& names) {
  std::vector<Case> selected;
  for (const Case& one : allCases()) {
    if (names.empty() || ("," + names + ",").find("," + one.name + ",") != std::string::npos) {
      selected.push_back(one);
    }
  }
  if (selected.empty()) throw std::invalid_argument("unknown case: " + names);
  return selected;
}

// jx_bench_execute [--cases NAME,...] [--rounds N] [--calls N] [--block N] [--pace-us N]
//                  [--to HOST --ca FILE]
int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  Plan plan;
  plan.rounds = arguments.number("rounds", 11);
  plan.calls = arguments.number("calls", 1'000);
  plan.block = std::max<std::uint64_t>(arguments.number("block", 250), 1);
  plan.pace = std::chrono::microseconds(arguments.number("pace-us", 0));
  const std::vector<Case> cases = selectedCases(arguments.text("cases"));
  const test::TemporaryFolder folder;
  LibraryOptions options;
  options.storageFolder = folder.path("state");
  options.keepsAll = true;
  plan.offline = !arguments.has("to");
  if (!plan.offline) options.collectionHost = arguments.text("to");
  options.caFile = arguments.text("ca");
  arguments.expectAllKnown();

  const auto serverSide = startLibrary(options);
  rapidjson::StringBuffer text;
  Json json(text);
  Measurement(*serverSide, folder, plan).run(cases, json);
  std::puts(text.GetString());
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_execute", argc, argv, jx::bench::run);
}
