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

std::shared_ptr<JXEvent> purchase(int items) {
  auto event = JXPurchaseEvent::init();
  event->setID("536365");
  event->setCurrency("GBP");
  event->setRevenue(JXDecimal::fromString("139.12"));
  event->setValue(JXDecimal::fromString("115.93"));
  event->setShippingAmount(JXDecimal::fromString("4.95"));
  event->setTaxAmount(JXDecimal::fromString("23.19"));
  event->setType("online");
  event->setPaymentMethod(EJXPayementMethod_CARD);
  event->setStatus(EJXPurchaseStatus_IN_PROGRESS);
  for (int i = 0; i < items; ++i) {
    auto product = JXProduct::initWithProductId_withName_withPrice(
        "85123A", "WHITE HANGING HEART T-LIGHT HOLDER", JXDecimal::fromString("2.55"));
    product->setCurrency("GBP");
    product->categories().append("home");
    product->categories().append("lighting");
    auto item = JXItem::initWithItemId_withProduct_withQuantity("536365-0", product, 6);
    item->setList_position(i);
    event->items().append(item);
  }
  return event;
}

std::string bodyOf(const std::shared_ptr<JXEvent>& event) {
  Host& host = Host::instance();
  host.recordBodies(true);
  const std::string body = host.bodyOf(event);
  host.recordBodies(false);
  return body;
}

void execute(benchmark::State& state, const std::shared_ptr<JXEvent>& event) {
  const std::string body = bodyOf(event);
  ServerSide& serverSide = Host::instance().serverSide();
  const std::uint64_t before = bench::allocationsOfThisThread();
  for (auto _ : state)
    serverSide.execute(event);
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(bench::allocationsOfThisThread() - before),
                         benchmark::Counter::kAvgIterations);
  state.counters["body_bytes"] = static_cast<double>(body.size());
}

void rapidJson(benchmark::State& state, const std::shared_ptr<JXEvent>& event) {
  const std::string body = bodyOf(event);
  const bench::JsonFloor floor(body);
  if (floor.text() != body) state.SkipWithError("the floor writes another text");
  for (auto _ : state)
    benchmark::DoNotOptimize(floor.write());
}

void plainWrite(benchmark::State& state, const std::shared_ptr<JXEvent>& event) {
  const std::string body = bodyOf(event);
  const std::string path = Host::instance().folder() + "/plain";
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
  for (auto _ : state)
    benchmark::DoNotOptimize(::write(file, body.data(), body.size()));
  ::close(file);
}

// An event beside the two floors under it.
void add(const std::string& name, const std::shared_ptr<JXEvent>& (*event)()) {
  const auto run = [&](const std::string& what,
                       void (*measure)(benchmark::State&, const std::shared_ptr<JXEvent>&)) {
    benchmark::RegisterBenchmark((name + "/" + what).c_str(),
                                 [=](benchmark::State& state) { measure(state, event()); })
        ->Iterations(5'000)
        ->Unit(benchmark::kMicrosecond);
  };
  run("execute", execute);
  run("floor_rapidjson", rapidJson);
  run("floor_write", plainWrite);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  add("custom", []() -> const std::shared_ptr<JXEvent>& {
    static const auto event = customEvent();
    return event;
  });
  add("purchase_1_item", []() -> const std::shared_ptr<JXEvent>& {
    static const auto event = purchase(1);
    return event;
  });
  add("purchase_20_items", []() -> const std::shared_ptr<JXEvent>& {
    static const auto event = purchase(20);
    return event;
  });
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
