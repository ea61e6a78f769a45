// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Measures `execute` called from several threads at once, compared with as many threads that each
// serialise the same body with RapidJSON and append it to a file of their own, without a lock.
// Prints one JSON document: for each number of threads and each round the events per second of all
// threads, and the median and the 99th percentile of one call in microseconds. bench/run.py prints
// it as a table.

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <barrier>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/Events.h"
#include "bench/ExecuteBaseline.h"
#include "bench/Program.h"
#include "bench/Samples.h"
#include "bench/StartLibrary.h"
#include "tests/soak/Arguments.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::bench {
namespace {

using Json = rapidjson::Writer<rapidjson::StringBuffer>;

/// The calls of all threads.
struct Result {
  double perSecond = 0;
  Samples samples;
};

struct Round {
  Result execute, baseline;
};

/// Runs `operation` `calls` times on each of `threads` threads, which begin together.
/// `prepare(thread)` returns the operation of a thread.
Result runOn(std::size_t threads, std::uint64_t calls,
             const std::function<std::function<void()>(std::size_t)>& prepare) {
  std::vector<Samples> samples(threads);
  // Measured by each thread: this one may not run until the others have finished.
  std::vector<Clock::time_point> begins(threads);
  std::vector<Clock::time_point> ends(threads);
  std::barrier together(static_cast<std::ptrdiff_t>(threads));
  std::vector<std::thread> running;
  for (std::size_t i = 0; i < threads; ++i) {
    running.emplace_back([&, i] {
      const std::function<void()> operation = prepare(i);
      samples[i].reserve(calls);
      together.arrive_and_wait();
      begins[i] = Clock::now();
      for (std::uint64_t call = 0; call < calls; ++call) {
        const Clock::time_point begin = Clock::now();
        operation();
        samples[i].add(Clock::now() - begin);
      }
      ends[i] = Clock::now();
    });
  }
  for (std::thread& thread : running)
    thread.join();
  const std::chrono::duration<double> took =
      *std::max_element(ends.begin(), ends.end()) - *std::min_element(begins.begin(), begins.end());
  Result result;
  result.perSecond = static_cast<double>(threads * calls) / took.count();
  for (const Samples& each : samples)
    result.samples.add(each);
  return result;
}

void print(const char* name, Result& result, Json& json) {
  json.Key(name);
  json.StartArray();
  for (const double value : {result.perSecond, result.samples.at(0.5), result.samples.at(0.99)})
    json.Double(value);
  json.EndArray();
}

// jx_bench_threads [--rounds N] [--calls N]
int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  const std::uint64_t rounds = arguments.number("rounds", 11);
  const std::uint64_t calls = arguments.number("calls", 1'000);
  arguments.expectAllKnown();
  const test::TemporaryFolder folder;
  LibraryOptions options;
  options.storageFolder = folder.path("state");
  options.keepsAll = true;
  const auto serverSide = startLibrary(options);
  const std::string body = bodyOf(*serverSide, purchase(1));
  const auto execute = [&](std::size_t) -> std::function<void()> {
    return [&, event = purchase(1)] { serverSide->execute(event); };
  };
  const auto baseline = [&](std::size_t thread) -> std::function<void()> {
    const std::string own = folder.path("baseline-" + std::to_string(thread));
    std::filesystem::create_directory(own);
    const std::vector<std::vector<Write>> calledWrites{{{0, body.size()}}};
    const auto writer = std::make_shared<ExecuteBaseline>(body, calledWrites, own);
    return [writer] { writer->run(); };
  };

  rapidjson::StringBuffer text;
  Json json(text);
  std::map<std::size_t, std::vector<Round>> results;
  for (std::uint64_t round = 0; round < rounds; ++round) {
    for (const std::size_t threads : {1, 2, 4, 8}) {
      Round one;
      one.execute = runOn(threads, calls / threads, execute);
      JXNetworkManager::sharedInstance().purge();
      one.baseline = runOn(threads, calls / threads, baseline);
      results[threads].push_back(std::move(one));
    }
  }
  json.StartObject();
  for (auto& [threads, ofThreads] : results) {
    json.Key(std::to_string(threads).c_str());
    json.StartArray();
    for (Round& round : ofThreads) {
      json.StartObject();
      print("execute", round.execute, json);
      print("baseline", round.baseline, json);
      json.EndObject();
    }
    json.EndArray();
  }
  json.EndObject();
  std::puts(text.GetString());
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_threads", argc, argv, jx::bench::run);
}
