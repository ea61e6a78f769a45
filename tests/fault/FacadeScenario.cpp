// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/FacadeScenario.h"

#include <thread>
#include <utility>

#include "jx/core/transfer/JXCurlTransport.h"

namespace jx::test {

using namespace std::chrono_literals;

// The real transport, which also records the requests that are started.
class FacadeScenario::Transport final : public JXHttpTransport {
 public:
  Transport(const JXHttpOptions& options, std::shared_ptr<Seen> seen)
      : curl_(options), seen_(std::move(seen)) {}

  void start(JXHttpRequest request) override {
    seen_->started.add(request.body);
    curl_.start(std::move(request));
  }
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override {
    return curl_.poll(timeout);
  }
  void wakeUp() noexcept override { curl_.wakeUp(); }
  void abortAll() noexcept override { curl_.abortAll(); }
  void suspend() noexcept override { curl_.suspend(); }
  void resume() noexcept override { curl_.resume(); }

 private:
  JXCurlTransport curl_;
  const std::shared_ptr<Seen> seen_;
};

FacadeScenario::FacadeScenario() {
  storage();
  configuration.collectionHost = server.url("");
  // The core must send with the manager that the test starts, not with its own.
  configuration.dryRun = true;
}

void FacadeScenario::leaveFromEarlierProcess(const std::vector<std::string>& eventIds) const {
  JXOutbox outbox(storage().path("outbox"), JXOutboxBounds(), time.day);
  for (const std::string& id : eventIds)
    outbox.add(server.url("/events?jx_s=1234&token=key"), bodyOf(id));
}

std::shared_ptr<ServerSide> FacadeScenario::startWith(std::int32_t defaultBehaviour) {
  JXHttpOptions options;
  options.caFile = server.caFile();
  options.proxy = "";
  JXTransferSetup setup;
  setup.outbox = std::make_shared<JXOutbox>(storage().path("outbox"), JXOutboxBounds(), time.day);
  setup.clock = time.day;
  setup.steadyNow = time.steadyNow();
  setup.draw = [] { return 0.5; };
  setup.timings.syncDelay = 0ms;
  setup.transport = std::make_shared<Transport>(options, seen_);
  setup.maintain = [seen = seen_] { seen->maintained.add(1); };
  setup.requestUserAgent = [answering = platform](std::function<void()> known) {
    answering->requestUserAgent([known = std::move(known)](const JXString&) { known(); });
  };
  manager.start(std::move(setup));
  return make(defaultBehaviour);
}

// The transfer thread reports its storage work in the middle of an iteration. With the second
// report, the previous iteration is complete.
bool FacadeScenario::advance(std::chrono::milliseconds passed) {
  time.advance(passed);
  return turn() && turn();
}

bool FacadeScenario::turn() {
  const std::size_t before = seen_->maintained.all().size();
  manager.storageChanged();
  return seen_->maintained.waitFor(before + 1);
}

bool FacadeScenario::waitForFailedAttempts(std::uint64_t count) {
  while (counters().failures < count) {
    if (!turn()) return false;
    std::this_thread::yield();
  }
  return turn();
}

bool FacadeScenario::deliverAll() const { return manager.flush(20s); }

std::vector<std::string> FacadeScenario::executed() const {
  std::vector<std::string> bodies;
  for (const Request& request : requests())
    bodies.push_back(request.text);
  return bodies;
}

void FacadeScenario::post(std::string_view name) {
  JXNotificationCenter::defaultCenter()->postNotification({name});
}

}  // namespace jx::test
