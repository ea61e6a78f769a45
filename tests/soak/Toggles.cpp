// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <barrier>
#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXApplication.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/soak/LoadedSide.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/SocketWrites.h"

namespace jx::soak {
namespace {

using std::chrono::milliseconds;

constexpr int kToggling = 8;
constexpr int kExecuting = 2;
constexpr int kQueued = 20;
// Longer than any write that a wrongly enabled transfer thread would begin with.
constexpr milliseconds kQuietTime{20};
constexpr milliseconds kDeliveryTime{5'000};

class Toggles {
 public:
  void run(std::uint64_t rounds, std::uint64_t toggles) {
    for (std::uint64_t round = 0; round < rounds; ++round) {
      side_.serverSide().enableServerSide();
      // Either while requests are in flight, or with a queue that the last decision is about.
      const bool isBusy = round % 2 == 0;
      if (isBusy) {
        side_.startLoad(kExecuting);
      } else {
        JXApplication::applicationDidEnterBackground();
        for (int i = 0; i < kQueued; ++i)
          side_.execute();
      }
      toggleFromAllThreads(round, toggles);
      side_.endLoad();
      if (!isBusy) JXApplication::applicationWillEnterForeground();
      check();
    }
  }

  int report(std::uint64_t rounds, std::uint64_t toggles) {
    const std::uint64_t calls = socketwrites::counts().calls;
    const std::uint64_t posted = side_.posted();
    const std::size_t received = side_.endServer();
    Report report("toggles");
    report.say(std::to_string(rounds) + " rounds of " + std::to_string(kToggling) + " threads by " +
               std::to_string(toggles) + " toggles");
    report.say("rounds that ended enabled " + std::to_string(enabled_) + ", disabled " +
               std::to_string(disabled_) + ", of these with queued requests " +
               std::to_string(held_));
    report.promise(calls > 0 && enabled_ > 0 && held_ > 0, "both ends were checked");
    report.promise(leaked_ == 0,
                   std::to_string(leaked_) + " rounds sent although the ServerSide was disabled");
    report.promise(stuck_ == 0, std::to_string(stuck_) +
                                    " rounds did not send although the ServerSide was enabled");
    report.promise(unreleased_ == 0,
                   std::to_string(unreleased_) + " rounds did not send after a last enabling");
    report.promise(received == posted,
                   std::to_string(received) + " of " + std::to_string(posted) + " events received");
    return report.status();
  }

 private:
  void toggleFromAllThreads(std::uint64_t round, std::uint64_t toggles) {
    std::vector<std::thread> threads;
    // The last toggles decide, so they come from all threads at once too.
    std::barrier together(kToggling);
    for (std::uint64_t i = 0; i < kToggling; ++i) {
      threads.emplace_back([this, toggles, &together, seed = round * kToggling + i] {
        std::mt19937_64 random(seed);
        for (std::uint64_t toggle = 0; toggle < toggles; ++toggle) {
          if (toggle == 0 || toggle + 1 == toggles) together.arrive_and_wait();
          if (random() % 2 == 0) {
            side_.serverSide().enableServerSide();
          } else {
            side_.serverSide().disableServerSide();
          }
        }
      });
    }
    for (std::thread& thread : threads)
      thread.join();
  }

  // What is sent now must follow the state that the ServerSide reports.
  void check() {
    if (side_.serverSide().serverSideState() == EJXServerSideState_DISABLED) {
      ++disabled_;
      checkDisabled();
      side_.serverSide().enableServerSide();
      unreleased_ += JXNetworkManager::sharedInstance().flush(kDeliveryTime) ? 0 : 1;
    } else {
      ++enabled_;
      stuck_ += JXNetworkManager::sharedInstance().flush(kDeliveryTime) ? 0 : 1;
    }
  }

  void checkDisabled() {
    const std::uint64_t before = socketwrites::counts().lateBytes;
    socketwrites::forbid();
    std::this_thread::sleep_for(kQuietTime);
    held_ += LoadedSide::queued() > 0 ? 1 : 0;
    socketwrites::allow();
    leaked_ += socketwrites::counts().lateBytes == before ? 0 : 1;
  }

  LoadedSide side_{LoadOptions()};
  std::uint64_t enabled_ = 0;
  std::uint64_t disabled_ = 0;
  std::uint64_t held_ = 0;
  std::uint64_t leaked_ = 0;
  std::uint64_t stuck_ = 0;
  std::uint64_t unreleased_ = 0;
};

}  // namespace

int toggles(Arguments& arguments) {
  const std::uint64_t rounds = arguments.number("rounds", 100);
  const std::uint64_t count = arguments.number("count", 500);
  arguments.expectAllKnown();
  Toggles toggles;
  toggles.run(rounds, count);
  return toggles.report(rounds, count);
}

}  // namespace jx::soak
