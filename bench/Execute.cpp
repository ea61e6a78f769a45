// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What one `execute` costs its caller, call by call, beside the floor under it. Prints one JSON
// document: for each kind of event what was persisted and allocated, and for each round the median,
// the 99th percentile and the longest call in microseconds. bench/run.py makes the table of it.

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/AllocationCount.h"
#include "bench/Events.h"
#include "bench/ExecuteFloor.h"
#include "bench/Host.h"
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
      {"purchase_3", [] { return purchase(3); }},
      {"purchase_20", [] { return purchase(20); }, 2},
      {"purchase_100", [] { return purchase(100); }, 5},
  };
  return cases;
}

/// What an execute leaves behind, found by looking at many.
struct Traits {
  std::string body;
  std::vector<Write> writes;  ///< the most frequent set
  double allocations = 0;     ///< on average
  double mallocs = 0;
};

std::uint64_t bytesIn(const std::string& folder) {
  std::uint64_t bytes = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) bytes += entry.file_size();
  }
  return bytes;
}

std::vector<Write> mostFrequent(const std::vector<std::vector<Write>>& all) {
  std::map<std::size_t, std::size_t> byCount;
  for (const auto& writes : all)
    ++byCount[writes.size()];
  const auto count = std::max_element(byCount.begin(), byCount.end(), [](auto& a, auto& b) {
                       return a.second < b.second;
                     })->first;
  return *std::find_if(all.rbegin(), all.rend(),
                       [&](const auto& writes) { return writes.size() == count; });
}

class Measurement {
 public:
  Measurement(ServerSide& serverSide, const test::TemporaryFolder& folder, Plan plan)
      : serverSide_(serverSide), folder_(folder), plan_(plan) {}

  void run(const std::vector<Case>& cases, Json& json) {
    std::vector<Traits> traits;
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
    Samples execute, withBuilding, floor, floorJson;
  };

  Traits traitsOf(const Case& one) const {
    constexpr int kLooks = 200;
    Traits traits;
    traits.body = bodyOf(serverSide_, one.make());
    // A change of the storage in the background, such as a file that is rewritten, spoils a look.
    for (int attempt = 0; attempt < 5; ++attempt) {
      std::vector<std::vector<Write>> all;
      const std::uint64_t before = bytesIn(folder_.path("state"));
      std::uint64_t written = 0;
      std::uint64_t allocations = 0;
      std::uint64_t mallocs = 0;
      for (int i = 0; i < kLooks; ++i) {
        waitForTurn();
        const auto event = one.make();
        WriteLog log;
        allocations -= allocationsOfThisThread();
        mallocs -= mallocsOfThisThread();
        serverSide_.execute(event);
        allocations += allocationsOfThisThread();
        mallocs += mallocsOfThisThread();
        for (const Write& write : log.writes())
          written += write.bytes;
        all.push_back(log.writes());
      }
      traits.writes = mostFrequent(all);
      traits.allocations = static_cast<double>(allocations) / kLooks;
      traits.mallocs = static_cast<double>(mallocs) / kLooks;
      if (!plan_.offline || bytesIn(folder_.path("state")) - before == written) return traits;
    }
    throw std::runtime_error("the storage grows by what no counted write has written");
  }

  Round measure(const Case& one, const Traits& traits) {
    Round round;
    ExecuteFloor floor(traits.body, traits.writes, folder_.path());
    const std::uint64_t calls = std::max(plan_.calls / one.divisor, plan_.block);
    for (std::uint64_t done = 0; done < calls; done += plan_.block) {
      for (std::uint64_t i = 0; i < plan_.block; ++i) {
        waitForTurn();
        executeOnce(one, round);
      }
      for (std::uint64_t i = 0; i < plan_.block; ++i) {
        waitForTurn();
        const ExecuteFloor::Cost cost = floor.run();
        round.floor.add(cost.whole);
        round.floorJson.add(cost.json);
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
    json.StartArray();
    for (const Write& write : traits.writes)
      json.Uint64(write.bytes);
    json.EndArray();
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
      print("floor_json", round.floorJson, json);
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
  try {
    return jx::bench::run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "jx_bench_execute: %s\n", error.what());
    return 1;
  }
}
