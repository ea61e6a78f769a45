// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/ServerScenario.h"

#include <cstdlib>
#include <utility>

namespace jx::test {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kDeliveryFailed = "Delivery failed: ";
constexpr std::string_view kRetryingIn = "; retrying in ";

}  // namespace

ServerScenario::ServerScenario(const JXTestServerOptions& options)
    : server(options), url(server.url()) {
  setup.clock = time.day;
  setup.steadyNow = time.steadyNow();
  setup.draw = [] { return 0.5; };
  setup.caFile = server.caFile();
  setup.proxy = "";
  // These tests do not concern the disk: a sync is due at once.
  setup.timings.syncDelay = 0ms;
  setup.onDelivery = [this](const JXDelivery& delivery) { deliveries.add(delivery); };
  setup.maintain = [this] { maintained_.add(1); };
  JXLogger::sharedInstance().setMaxLevel(6);
  JXLogger::sharedInstance().setSink(
      [this](int level, std::string_view text) { keepMessage(level, std::string(text)); });
}

ServerScenario::~ServerScenario() {
  if (transfer_) transfer_->stop(JXTransfer::kStopLimit);
  JXLogger::sharedInstance().setSink(nullptr);
}

void ServerScenario::keepMessage(int level, const std::string& text) {
  const std::size_t end = text.rfind(kRetryingIn);
  if (text.rfind(kDeliveryFailed, 0) != 0 || end == std::string::npos) {
    lines_.add({level, text});
    return;
  }
  const std::size_t reason = kDeliveryFailed.size();
  const std::chrono::milliseconds backoff(std::atoll(text.c_str() + end + kRetryingIn.size()));
  failures.add({level, backoff, text.substr(reason, end - reason)});
}

void ServerScenario::startProcess() {
  setup.outbox = std::make_shared<JXOutbox>(folder.path("outbox"), JXOutboxBounds(), time.day);
  transfer_ = std::make_shared<JXTransfer>(setup);
  transfer_->start();
}

void ServerScenario::endProcess() {
  attemptsOfEndedProcesses += counters().attempts;
  deliveredByEndedProcesses += counters().outbox.delivered;
  transfer_->stop(JXTransfer::kStopLimit);
  transfer_.reset();
  setup.outbox.reset();
}

void ServerScenario::execute(const std::string& eventId) {
  transfer_->enqueue(url, bodyOf(eventId));
}

// The transfer thread reports its storage work in the middle of an iteration. With the second
// report, the previous iteration is complete.
bool ServerScenario::advance(std::chrono::milliseconds passed) {
  time.advance(passed);
  return turn() && turn();
}

bool ServerScenario::turn() {
  const std::size_t before = maintained_.all().size();
  transfer_->storageChanged();
  return maintained_.waitFor(before + 1);
}

bool ServerScenario::deliverAll() { return transfer_->flush(20s); }

int ServerScenario::connections() const {
  return server.connections() + elsewhere.connections() + (proxy ? proxy->connections() : 0);
}

std::vector<std::string> ServerScenario::lines(int level) const {
  std::vector<std::string> found;
  for (const Line& line : lines_.all()) {
    if (line.level <= level) found.push_back(std::to_string(line.level) + " " + line.text);
  }
  return found;
}

}  // namespace jx::test
