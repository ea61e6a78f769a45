// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What one `execute` costs its caller, beside the floors under it: RapidJSON writing the same body
// from values at hand, and one plain write of the same bytes to a file.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/AllocationCount.h"
#include "bench/JsonFloor.h"
#include "jx/JXServerSide.h"
#include "jx/core/notifications/JXNotificationCenter.h"

namespace {

using namespace jx;

// The storage is real and the network is not there: what the transfer thread would do beside the
// caller is measured elsewhere.
class Host {
 public:
  static Host& instance() {
    static Host host;
    return host;
  }
  ~Host() { std::filesystem::remove_all(folder_); }

  ServerSide& serverSide() { return *serverSide_; }
  const std::string& folder() const { return folder_; }
  const std::string& bodyOf(const std::shared_ptr<JXEvent>& event) {
    serverSide_->execute(event);
    return lastBody_;
  }
  void recordBodies(bool record) { records_ = record; }

 private:
  Host() {
    char pattern[] = "/tmp/jx-bench-XXXXXX";
    folder_ = mkdtemp(pattern);
    JXCoreConfiguration configuration;
    configuration.storageFolder = folder_ + "/state";
    configuration.collectionHost = "https://127.0.0.1:1";
    configuration.logLevel = 0;
    configuration.outboxBounds.maxRequests = 10'000'000;
    configuration.outboxBounds.maxBytes = std::uint64_t{64} << 30;
    configuration.bundle = {"com.example.tv", "Example TV", "100", "1.2.3"};
    configuration.screen = {1920, 1080};
    JXCoreConfiguration::set(configuration);
    JXNotificationCenter::defaultCenter()->addObserver(
        this, kJXNotification_HTTPRequest, [this](const JXNotification& n) {
          if (records_) lastBody_ = n.userInfo.get(kJXUserInfo_POSTData).string().toStdString();
        });
    serverSide_ = ServerSide::initWithSiteID_andSourceKey(3311, "a-source-key");
  }

  std::string folder_;
  std::string lastBody_;
  bool records_ = false;
  std::shared_ptr<ServerSide> serverSide_;
};

std::shared_ptr<JXEvent> customEvent() {
  auto event = JXCustomEvent::initWithName("quiz_answer");
  event->setPageName("home");
  event->setPageType("landing");
  event->addAdditionalParameter_withValue("answer", "forty-two");
  event->addAdditionalParameter_withValue("question", "What is six times seven?");
  return event;
}

std::string bodyOfCustomEvent() {
  Host& host = Host::instance();
  host.recordBodies(true);
  const std::string body = host.bodyOf(customEvent());
  host.recordBodies(false);
  return body;
}

void Execute_CustomEvent(benchmark::State& state) {
  const std::string body = bodyOfCustomEvent();
  ServerSide& serverSide = Host::instance().serverSide();
  const std::shared_ptr<JXEvent> event = customEvent();
  const std::uint64_t before = bench::allocationsOfThisThread();
  for (auto _ : state)
    serverSide.execute(event);
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(bench::allocationsOfThisThread() - before),
                         benchmark::Counter::kAvgIterations);
  state.counters["body_bytes"] = static_cast<double>(body.size());
}
BENCHMARK(Execute_CustomEvent)->Iterations(5'000)->Unit(benchmark::kMicrosecond);

void Floor_RapidJsonSameBody(benchmark::State& state) {
  const std::string body = bodyOfCustomEvent();
  const bench::JsonFloor floor(body);
  if (floor.text() != body) state.SkipWithError("the floor writes another text");
  for (auto _ : state)
    benchmark::DoNotOptimize(floor.write());
}
BENCHMARK(Floor_RapidJsonSameBody)->Iterations(50'000)->Unit(benchmark::kMicrosecond);

void Floor_PlainWriteSameBytes(benchmark::State& state) {
  const std::string body = bodyOfCustomEvent();
  const std::string path = Host::instance().folder() + "/plain";
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  for (auto _ : state)
    benchmark::DoNotOptimize(::write(file, body.data(), body.size()));
  ::close(file);
}
BENCHMARK(Floor_PlainWriteSameBytes)->Iterations(5'000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
