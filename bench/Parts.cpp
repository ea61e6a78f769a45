// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What each part of an `execute` costs when it is done over and over alone: a purchase with four
// items. The only program here that calls operations which no host does; a part that the library no
// longer has is a line less in `main`.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/AllocationCount.h"
#include "bench/Events.h"
#include "bench/ExecuteBaseline.h"
#include "bench/Host.h"
#include "jx/context/JXApp.h"
#include "jx/context/JXDevice.h"
#include "jx/core/JXUser.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonTextSink.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/facade/JXPostData.h"
#include "jx/variables/JXPredefinedVariables.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::bench {
namespace {

constexpr int kIterations = 2'000;

// Time stands still until it is moved on: whether two events share a millisecond decides whether
// values are persisted.
class SteppedClock final : public JXClock {
 public:
  std::int64_t nowMs() const override { return nowMs_; }
  void step() { nowMs_ += 3; }

 private:
  std::int64_t nowMs_ = 1'790'000'000'000;
};

struct Scene {
  test::TemporaryFolder folder;
  std::shared_ptr<SteppedClock> clock = std::make_shared<SteppedClock>();
  std::shared_ptr<ServerSide> serverSide;
  std::shared_ptr<JXEvent> event = purchase(4);
  std::string url = "https://127.0.0.1:1/events?jx_s=3311&token=a-source-key";
  std::string body;

  Scene() {
    HostOptions options;
    options.storageFolder = folder.path("state");
    options.keepsAll = true;
    options.clock = clock;
    serverSide = startHost(options);
    body = bodyOf(*serverSide, event);
  }
};

template <typename Operation>
void add(const std::string& name, Operation operation) {
  const auto measure = [operation](benchmark::State& state) {
    const std::uint64_t before = allocationsOfThisThread();
    for (auto _ : state)
      operation();
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocationsOfThisThread() - before),
                           benchmark::Counter::kAvgIterations);
  };
  benchmark::RegisterBenchmark(name.c_str(), measure)
      ->Iterations(kIterations)
      ->Unit(benchmark::kMicrosecond)
      // What has piled up in the queue is nothing that the next part should bear.
      ->Teardown([](const benchmark::State&) { JXNetworkManager::sharedInstance().purge(); });
}

void computeVariables() {
  JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  variables.firstExecute();
  variables.computeTimeChangingVariables();
  variables.resetNewSession();
}

void addWholes(Scene& scene) {
  add("execute/same_millisecond", [&] { scene.serverSide->execute(scene.event); });
  add("execute/next_millisecond", [&] {
    scene.clock->step();
    scene.serverSide->execute(scene.event);
  });
  add("building", [] { benchmark::DoNotOptimize(purchase(4)); });
}

void addVariables(Scene& scene) {
  add("part/variables/same_millisecond", computeVariables);
  add("part/variables/next_millisecond", [&] {
    scene.clock->step();
    computeVariables();
  });
  add("part/one_value_persisted", [&] {
    scene.clock->step();
    JXUserDefaults::saveInfoToUserDefaults_forLabel(std::to_string(scene.clock->nowMs()), "jx_t");
  });
}

// What one block or part of the body costs to write as text.
template <typename Tell>
void addText(const std::string& name, Tell tell) {
  add(name, [tell] {
    JXJsonTextSink sink(JXJsonStyle::Pretty, 4096);
    tell(sink);
    benchmark::DoNotOptimize(sink.finish());
  });
}

void addBody(Scene& scene) {
  add("part/body", [&] {
    benchmark::DoNotOptimize(JXPostData::getPostParameters_withServerSideState(
        *scene.event, EJXServerSideState_ENABLED));
  });
  addText("part/body/event", [&](JXJsonTextSink& sink) {
    scene.event->writeHead(sink);
    sink.beginObject("context");
    scene.event->writeContext(sink);
    sink.endObject();
    scene.event->writeFields(sink);
  });
  addText("part/body/user_block",
          [](JXJsonTextSink& sink) { sink.block("user", JXUser::sharedInstance()); });
  addText("part/body/device_block", [](JXJsonTextSink& sink) {
    JXDevice::sharedInstance().refreshContent();
    sink.block("device", JXDevice::sharedInstance());
  });
  addText("part/body/app_block", [](JXJsonTextSink& sink) {
    JXApp::sharedInstance().refreshContent();
    sink.block("app", JXApp::sharedInstance());
  });
}

// What is not done for an execute: the same event as a tree, and the tree as text.
void addTrees(Scene& scene) {
  add("beside/event_as_tree", [&] { benchmark::DoNotOptimize(scene.event->getJsonObject()); });
  const JXJsonObject object = JXJsonReader::read(scene.body).value.object();
  add("beside/tree_as_text", [object] {
    benchmark::DoNotOptimize(JXJsonWriter::write(object, JXJsonStyle::Pretty).text);
  });
}

void addDelivery(Scene& scene) {
  add("part/notification_that_nobody_hears", [&] {
    JXJsonObject userInfo;
    userInfo.set(kJXUserInfo_URLKey, scene.url);
    userInfo.set(kJXUserInfo_POSTData, scene.body);
    JXNotificationCenter::defaultCenter()->postNotification({"nobody", nullptr, userInfo});
  });
  add("part/enqueue", [&] { JXNetworkManager::sharedInstance().enqueue(scene.url, scene.body); });
  JXOutboxBounds bounds;
  bounds.maxRequests = 10'000'000;
  bounds.maxBytes = std::uint64_t{64} << 30;
  const auto outbox = std::make_shared<JXOutbox>(scene.folder.path("outbox"), bounds,
                                                 std::make_shared<JXSystemClock>());
  add("part/enqueue/journal", [&scene, outbox] { outbox->add(scene.url, scene.body); });
}

void addBaselines(Scene& scene) {
  const auto json = std::make_shared<JsonBaseline>(scene.body);
  add("floor/rapidjson", [json] { benchmark::DoNotOptimize(json->write()); });
  const auto whole = std::make_shared<ExecuteBaseline>(
      scene.body, std::vector<std::vector<Write>>{{{0, scene.body.size()}}}, scene.folder.path());
  add("floor/rapidjson_and_write", [whole] { whole->run(); });
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  jx::bench::Scene scene;
  jx::bench::addWholes(scene);
  jx::bench::addVariables(scene);
  jx::bench::addBody(scene);
  jx::bench::addDelivery(scene);
  jx::bench::addTrees(scene);
  jx::bench::addBaselines(scene);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::ClearRegisteredBenchmarks();
  return 0;
}
