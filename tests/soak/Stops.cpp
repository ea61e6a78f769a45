// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/soak/LoadedSide.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/SocketWrites.h"

namespace jx::soak {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr int kExecuting = 3;
constexpr milliseconds kSlowSync{300};
// A stop comes after up to this number of socket writes: in the handshake of a new connection too.
constexpr std::uint64_t kMostWrites = 40;
// Longer than any delayed write that was ever measured, unless the disk delays it.
constexpr milliseconds kQuietTime{10};

struct StopOptions {
  std::uint64_t count = 0;
  bool tls = false;
  bool slowDisk = false;
  bool slowSend = false;
  std::string way;
};

std::string percentiles(std::vector<double> values) {
  if (values.empty()) return "no values";
  std::sort(values.begin(), values.end());
  const auto at = [&](double part) {
    const double last = static_cast<double>(values.size() - 1);
    return rounded(values[static_cast<std::size_t>(part * last)], 3);
  };
  return "p50 " + at(0.5) + ", p99 " + at(0.99) + ", maximum " + at(1) + " ms";
}

class Stops {
 public:
  explicit Stops(const StopOptions& options)
      : options_(options), side_(loadOptions()), way_(wayNamed(options.way)) {
    if (options.slowDisk) socketwrites::delaySyncs(kSlowSync);
    if (options.slowSend) socketwrites::delaySends(std::chrono::microseconds(500));
  }

  void run() {
    side_.startLoad(kExecuting);
    for (std::uint64_t i = 0; i < options_.count; ++i) {
      awaitSending();
      const std::uint64_t before = socketwrites::counts().lateCalls;
      way_();
      marks_ += side_.hasMark() ? 1 : 0;
      socketwrites::waitForSyncsInProgress();
      std::this_thread::sleep_for(kQuietTime);
      socketwrites::allow();
      broken_ += socketwrites::counts().lateCalls == before ? 0 : 1;
      side_.serverSide().enableServerSide();
    }
    side_.endLoad();
    socketwrites::delaySyncs(milliseconds(0));
    isEmpty_ = JXNetworkManager::sharedInstance().flush(std::chrono::minutes(2));
  }

  int report() {
    const socketwrites::Counts counts = socketwrites::counts();
    const std::uint64_t posted = side_.posted();
    const std::size_t received = side_.endServer();
    Report report("stops");
    report.say(std::to_string(durations_.size()) + " stops by " + options_.way + " over " +
               (options_.tls ? "https" : "http") + (options_.slowDisk ? ", slow disk" : "") +
               (options_.slowSend ? ", slow sends" : ""));
    report.say("duration of a stop: " + percentiles(durations_));
    report.say("socket writes: " + std::to_string(counts.calls) + " (" +
               socketwrites::describeCalls() + "), in progress at a return " +
               std::to_string(counts.crossing) + ", refused after a return " +
               std::to_string(counts.rejected));
    report.say("stops whose mark existed at the return: " + std::to_string(marks_) + " of " +
               std::to_string(durations_.size()));
    report.say("failed attempts: " +
               std::to_string(JXNetworkManager::sharedInstance().counters().failures));
    report.promise(counts.calls > options_.count && received > 0,
                   "the writes of libcurl were counted");
    report.promise(counts.lateBytes == 0, std::to_string(counts.lateBytes) +
                                              " bytes written after a return, in " +
                                              std::to_string(counts.lateCalls) + " calls after " +
                                              std::to_string(broken_) + " stops");
    report.promise(isEmpty_ && received == posted, std::to_string(received) + " of " +
                                                       std::to_string(posted) +
                                                       " events received after the last enabling");
    return report.status();
  }

 private:
  LoadOptions loadOptions() {
    LoadOptions load;
    load.tls = options_.tls;
    // With the slow disk nearly every stop is called during a sync.
    if (options_.slowDisk) load.syncDelay = milliseconds(20);
    if (options_.way == "callback") load.onDelivery = [this](const JXDelivery&) { onDelivery(); };
    return load;
  }

  std::function<void()> wayNamed(const std::string& name) {
    const std::map<std::string, std::function<void()>> ways{
        {"call", [this] { stop(); }},
        {"notification", [this] { stop(); }},
        {"manager", [this] { stop(); }},
        {"thread", [this] { std::thread([this] { stop(); }).join(); }},
        {"callback",
         [this] {
           stopsInCallback_ = true;
           waitUntil([this] { return !stopsInCallback_; }, "no event was delivered");
         }},
    };
    const auto found = ways.find(name);
    if (found != ways.end()) return found->second;
    throw std::invalid_argument("--way must be call, notification, manager, thread or callback");
  }

  // Waits for writes that follow the last enabling: the server is being written to again.
  void awaitSending() {
    const std::uint64_t wanted = socketwrites::counts().calls + 1 + random_() % kMostWrites;
    waitUntil([wanted] { return socketwrites::counts().calls >= wanted; }, "nothing is sent");
  }

  void stop() {
    const Clock::time_point before = Clock::now();
    if (options_.way == "notification") {
      JXNotificationCenter::defaultCenter()->postNotification(
          {kJXNotification_StoppingTheServerSide});
    } else if (options_.way == "manager") {
      JXNetworkManager::sharedInstance().changingSDKBehaviour(false);
    } else {
      side_.serverSide().disableServerSide();
    }
    socketwrites::forbid();
    durations_.push_back(std::chrono::duration<double, std::milli>(Clock::now() - before).count());
  }

  void onDelivery() {
    if (!stopsInCallback_) return;
    stop();
    stopsInCallback_ = false;
  }

  const StopOptions options_;
  std::atomic<bool> stopsInCallback_{false};
  std::vector<double> durations_;
  std::mt19937_64 random_{1};
  LoadedSide side_;
  const std::function<void()> way_;
  std::uint64_t marks_ = 0;
  std::uint64_t broken_ = 0;  ///< stops that were followed by writes
  bool isEmpty_ = false;
};

}  // namespace

int stops(Arguments& arguments) {
  StopOptions options;
  options.count = arguments.number("count", 2'000);
  options.tls = arguments.has("tls");
  options.slowDisk = arguments.has("slow-disk");
  options.slowSend = arguments.has("slow-send");
  options.way = arguments.has("way") ? arguments.text("way") : "call";
  arguments.expectAllKnown();
  Stops stops(options);
  stops.run();
  return stops.report();
}

}  // namespace jx::soak
