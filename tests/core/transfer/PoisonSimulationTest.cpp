// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Delivery with poison requests, which always get a 500, in simulated time and with the default
// timings. Each test prints what it measures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

#include "tests/core/transfer/JXSimulatedServer.h"

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::JXSimulatedDevice;

constexpr int kGood = 500;
constexpr unsigned kSeeds = 5;

bool isPoison(const std::string& eventId) { return eventId.rfind("bad", 0) == 0; }

int statusOf(const JXHttpRequest& request) {
  return request.body.find("\"bad") != std::string::npos ? 500 : 200;
}

// Returns the time until all good requests are delivered, of the order in `ids`.
milliseconds timeToGood(const std::vector<std::string>& ids, unsigned seed) {
  JXSimulatedDevice device(seed);
  device.server().statusOf = statusOf;
  int good = 0;
  device.onDelivery = [&](const JXDelivery& delivery) {
    if (delivery.outcome == JXDeliveryOutcome::Delivered) ++good;
  };
  for (const std::string& id : ids)
    device.add(id);
  device.runUntil(24h, [&] { return good == kGood; });
  EXPECT_EQ(good, kGood);
  return device.server().now;
}

std::vector<std::string> numbered(const std::string& prefix, int count) {
  std::vector<std::string> ids;
  for (int i = 0; i < count; ++i)
    ids.push_back(prefix + std::to_string(i));
  return ids;
}

std::vector<std::string> joined(std::vector<std::string> first,
                                const std::vector<std::string>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

milliseconds longestTimeToGood(const std::vector<std::string>& ids) {
  milliseconds longest{0};
  for (unsigned seed = 1; seed <= kSeeds; ++seed)
    longest = std::max(longest, timeToGood(ids, seed));
  return longest;
}

TEST(PoisonSimulation, PoisonInFrontDelaysGoodRequestsLittle) {
  const std::map<int, milliseconds> limits{{1, 10s}, {2, 30s}, {10, 3min}, {200, 30min}};
  for (const auto& [count, limit] : limits) {
    const milliseconds longest =
        longestTimeToGood(joined(numbered("bad", count), numbered("good", kGood)));
    std::printf("%3d poison requests in front of %d: all good delivered in %.1f s\n", count, kGood,
                static_cast<double>(longest.count()) / 1'000);
    EXPECT_LE(longest, limit) << count;
  }
}

TEST(PoisonSimulation, PoisonAnywhereDelaysGoodRequestsLittle) {
  for (const int count : {1, 2, 10, 200}) {
    std::vector<std::string> ends = joined(numbered("bad-a", count), numbered("good", kGood));
    ends = joined(ends, numbered("bad-b", count));
    std::vector<std::string> mixed = ends;
    std::shuffle(mixed.begin(), mixed.end(), std::mt19937(7));
    for (const auto& ids : {ends, mixed}) {
      const milliseconds longest = longestTimeToGood(ids);
      std::printf("2 x %3d poison requests %s: all good delivered in %.1f s\n", count,
                  ids == ends ? "at both ends" : "anywhere",
                  static_cast<double>(longest.count()) / 1'000);
      EXPECT_LE(longest, count == 200 ? 30min : 3min) << count;
    }
  }
}

// Runs a device that executes an event every `interval`, one in ten of them poison, and returns
// the longest time from the execution of a good event to its delivery.
milliseconds longestWait(milliseconds interval, milliseconds duration, unsigned seed) {
  JXSimulatedDevice device(seed);
  device.server().statusOf = statusOf;
  std::map<std::string, milliseconds> executed;
  milliseconds longest{0};
  device.onDelivery = [&](const JXDelivery& delivery) {
    if (delivery.outcome != JXDeliveryOutcome::Delivered) return;
    const auto event = executed.find(delivery.eventId.toStdString());
    longest = std::max(longest, device.server().now - event->second);
    executed.erase(event);
  };
  std::mt19937 random(seed);
  int number = 0;
  for (milliseconds time{0}; time < duration; time += interval) {
    device.runUntil(time);
    const std::string id = (random() % 10 == 0 ? "bad" : "good") + std::to_string(++number);
    if (!isPoison(id)) executed[id] = time;
    device.add(id);
  }
  for (const auto& [id, time] : executed)
    longest = std::max(longest, device.server().now - time);
  return longest;
}

TEST(PoisonSimulation, GoodRequestsWaitAtMostFiveMinutesWhilePoisonArrives) {
  for (const auto& [interval, duration] : std::map<milliseconds, milliseconds>{
           {200ms, 15min}, {10s, 12h}, {1min, 96h}, {10min, 240h}}) {
    milliseconds longest{0};
    for (unsigned seed = 1; seed <= 3; ++seed)
      longest = std::max(longest, longestWait(interval, duration, seed));
    std::printf("an event every %.1f s, 10 %% poison, %ld h: longest wait %.1f s\n",
                static_cast<double>(interval.count()) / 1'000, static_cast<long>(duration / 1h),
                static_cast<double>(longest.count()) / 1'000);
    EXPECT_LE(longest, 5min);
  }
}

int attemptsPerDay(int queued, milliseconds interval, bool restarts, unsigned seed) {
  JXSimulatedDevice device(seed);
  device.server().statusOf = [](const JXHttpRequest&) { return 500; };
  for (int i = 0; i < queued; ++i)
    device.add("e" + std::to_string(i));
  // After the first hour, which has the short waits.
  for (milliseconds time = interval; time <= 24h; time += interval) {
    device.runUntil(time);
    if (restarts && time == interval * (12h / interval)) device.restart();
    if (!restarts && interval < 24h) device.add("more");
  }
  return device.server().attempts;
}

TEST(PoisonSimulation, AServerThatFailsOnEverythingReceivesAtMost400AttemptsADay) {
  for (const int queued : {1, 2, 3, 5, 10, 200, 10'000}) {
    const int attempts = attemptsPerDay(queued, 24h, false, 1);
    std::printf("%5d queued, every response 500: %d attempts in 24 h\n", queued, attempts);
    EXPECT_LE(attempts, 400) << queued;
  }
}

TEST(PoisonSimulation, NewEventsAndAStartAddFewAttemptsToAFailingServer) {
  for (const milliseconds interval : {10s, 200s, 260s, 600s}) {
    const int attempts = attemptsPerDay(200, interval, false, 2);
    std::printf("200 queued and one more every %ld s: %d attempts in 24 h\n",
                static_cast<long>(interval / 1s), attempts);
    EXPECT_LE(attempts, 400);
  }
  const int restarted = attemptsPerDay(200, 1h, true, 3);
  std::printf("200 queued, one start of a process after 12 h: %d attempts in 24 h\n", restarted);
  EXPECT_LE(restarted, 400);
}

TEST(PoisonSimulation, DeliversEverythingSoonAfterAnOutage) {
  JXSimulatedDevice device(4);
  device.server().statusOf = [&](const JXHttpRequest&) {
    return device.server().now < 24h ? 500 : 200;
  };
  for (int i = 0; i < 500; ++i)
    device.add("e" + std::to_string(i));
  device.runUntil(25h, [&] { return device.queued() == 0; });
  EXPECT_EQ(device.queued(), 0u);
  std::printf("500 queued during an outage of 24 h: delivered %.1f s after it\n",
              static_cast<double>((device.server().now - 24h).count()) / 1'000);
  EXPECT_LE(device.server().now, 24h + 10min);
}

}  // namespace
}  // namespace jx
