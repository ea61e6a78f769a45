// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What one `execute` costs its caller, call by call, beside the floor under it. Prints one JSON
// document: for each kind of event what was persisted and allocated, and for each round the median,
// the 99th percentile and the longest call in microseconds. bench/run.py makes the table of it.

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
#include "bench/Host.h"
#include "bench/Program.h"
#include "bench/Samples.h"
#include "bench/WriteLog.h"
#include "tests/soak/Arguments.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::bench {
namespace {

using Json = rapidjson::Writer<rapidjson::StringBuffer>;

struct Plan {
  std::uint64_t rounds = 0;
  std::uint64_t calls = 0;  ///< of each, in a round
  std::uint64_t block = 0;  ///< so many of one before so many of the other
  std::chrono::microseconds pace{0};
  /// Nobody takes the requests, so the storage's growth tells whether every write was counted.
  bool offline = true;
};

// How many executes are looked at to find what one persists and allocates.
constexpr int kLooks = 256;

struct Case {
  std::string name;
  std::function<std::shared_ptr<JXEvent>()> make;
  /// A part of the plan's calls: what is long needs fewer.
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

/// What an execute leaves behind, found by looking at many.
struct Traits {
  std::string body;
  std::vector<std::vector<Write>> calls;  ///< the writes of each
  double allocations = 0;                 ///< on average, as all below
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
    Samples execute, withBuilding, floor, baselineJson;
  };

  Traits traitsOf(const Case& one) const {
    // A change of the storage in the background, such as a file that is rewritten, spoils a look.
    for (int attempt = 0; attempt < 5; ++attempt) {
      const std::string body = bodyOf(serverSide_, one.make());
      const std::uint64_t before = bytesIn(folder_.path("state"));
      Traits traits = lookAt(one);
      traits.body = body;
      const std::uint64_t grown = bytesIn(folder_.path("state")) - before;
      if (!plan_.offline || static_cast<double>(grown) == traits.bytes * kLooks) return traits;
    }
    throw std::runtime_error("the storage grows by what no counted write has written");
  }

  Traits lookAt(const Case& one) const {
    Traits traits;
    std::uint64_t bytes = 0;
    std::uint64_t writes = 0;
    std::uint64_t allocations = 0;
    std::uint64_t mallocs = 0;
    for (int i = 0; i < kLooks; ++i) {
      waitForTurn();
      const auto event = one.make();
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
    traits.allocations = static_cast<double>(allocations) / kLooks;
    traits.mallocs = static_cast<double>(mallocs) / kLooks;
    traits.writes = static_cast<double>(writes) / kLooks;
    traits.bytes = static_cast<double>(bytes) / kLooks;
    return traits;
  }

  Round measure(const Case& one, const Traits& traits) {
    Round round;
    ExecuteBaseline floor(traits.body, traits.calls, folder_.path());
    const std::uint64_t calls = std::max(plan_.calls / one.divisor, plan_.block);
    for (std::uint64_t done = 0; done < calls; done += plan_.block) {
      for (std::uint64_t i = 0; i < plan_.block; ++i) {
        waitForTurn();
        executeOnce(one, round);
      }
      for (std::uint64_t i = 0; i < plan_.block; ++i) {
        waitForTurn();
        const ExecuteBaseline::Cost cost = floor.run();
        round.floor.add(cost.whole);
        round.baselineJson.add(cost.json);
      }
    }
    floor.empty();
    tidy();
    return round;
  }

  void executeOnce(const Case& one, Round& round) {
    const Clock::time_point begin = Clock::now();
    auto event = one.make();
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

  // A round begins with an empty queue, and not while the disk is busy with the one before.
  void tidy() const {
    JXNetworkManager& manager = JXNetworkManager::sharedInstance();
    if (plan_.offline) {
      manager.purge();
    } else if (!manager.flush(std::chrono::seconds(30))) {
      throw std::runtime_error("the server does not take the requests");
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
      print("floor", round.floor, json);
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

std::vector<Case> chosenCases(const std::string& names) {
  std::vector<Case> chosen;
  for (const Case& one : allCases()) {
    if (names.empty() || ("," + names + ",").find("," + one.name + ",") != std::string::npos) {
      chosen.push_back(one);
    }
  }
  if (chosen.empty()) throw std::invalid_argument("no such case: " + names);
  return chosen;
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
  const std::vector<Case> cases = chosenCases(arguments.text("cases"));
  const test::TemporaryFolder folder;
  HostOptions options;
  options.storageFolder = folder.path("state");
  options.keepsAll = true;
  plan.offline = !arguments.has("to");
  if (!plan.offline) options.collectionHost = arguments.text("to");
  options.caFile = arguments.text("ca");
  arguments.expectAllKnown();

  const auto serverSide = startHost(options);
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
