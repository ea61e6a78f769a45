// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Measures each part of an `execute` separately, in a loop, for a purchase with four items. This is
// the only benchmark that calls operations which are not part of the public API.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/AllocationCount.h"
#include "bench/Events.h"
#include "bench/ExecuteBaseline.h"
#include "bench/StartLibrary.h"
#include "jx/core/JXUser.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonTextSink.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/facade/JXPostData.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::bench {
namespace {

constexpr int kIterations = 2'000;

// The clock advances only on request: an event persists values only if its millisecond differs from
// that of the previous event.
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
    LibraryOptions options;
    options.storageFolder = folder.path("state");
    options.keepsAll = true;
    options.clock = clock;
    serverSide = startLibrary(options);
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
      // A long queue must not slow down the next part.
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

// Measures the serialisation of one block or part of the body.
template <typename Write>
void addText(const std::string& name, Write write) {
  add(name, [write] {
    JXJsonTextSink sink(JXJsonStyle::Pretty, 4096);
    write(sink);
    benchmark::DoNotOptimize(sink.finish());
  });
}

// Makes the protected parts of an event's JSON accessible.
struct EventParts : JXEvent {
  using JXEvent::writeContext;
  using JXEvent::writeFields;
  using JXEvent::writeHead;
};

void addBody(Scene& scene) {
  add("part/body", [&] {
    benchmark::DoNotOptimize(JXPostData::getPostParameters_withServerSideState(
        *scene.event, EJXServerSideState_ENABLED));
  });
  addText("part/body/event", [&](JXJsonTextSink& sink) {
    const JXEvent& event = *scene.event;
    (event.*&EventParts::writeHead)(sink);
    sink.beginObject("context");
    (event.*&EventParts::writeContext)(sink);
    sink.endObject();
    (event.*&EventParts::writeFields)(sink);
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

// Operations that are not part of an execute: the event as a tree, and serialising the tree.
void addTrees(Scene& scene) {
  add("other/event_as_tree", [&] { benchmark::DoNotOptimize(scene.event->getJsonObject()); });
  const JXJsonObject object = JXJsonReader::read(scene.body).value.object();
  add("other/tree_as_text", [object] {
    benchmark::DoNotOptimize(JXJsonWriter::write(object, JXJsonStyle::Pretty).text);
  });
}

void addDelivery(Scene& scene) {
  add("part/notification_without_observers", [&] {
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
  add("baseline/rapidjson", [json] { benchmark::DoNotOptimize(json->write()); });
  const auto whole = std::make_shared<ExecuteBaseline>(
      scene.body, std::vector<std::vector<Write>>{{{0, scene.body.size()}}}, scene.folder.path());
  add("baseline/rapidjson_and_write", [whole] { whole->run(); });
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
