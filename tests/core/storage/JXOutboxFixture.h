// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/platform/JXManualClock.h"
#include "tests/core/storage/JXLogLines.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/support/CheckInterval.h"

namespace jx {

constexpr std::int64_t kTestNowMs = 1'790'000'000'000;  // in September 2026
constexpr std::int64_t kDayMs = 24LL * 60 * 60 * 1'000;
constexpr const char* kTestUrl = "https://collect.example/events";

/// Provides an outbox folder, a clock and helper functions.
class OutboxTest : public ::testing::Test {
 protected:
  OutboxTest() : box_(folder_.file("outbox")) {}

  std::unique_ptr<JXOutbox> open(const JXOutboxBounds& bounds = {}) const {
    return std::make_unique<JXOutbox>(box_, bounds, clock_);
  }

  /// Returns the body of an event with this ID.
  static std::string event(const std::string& id) {
    return R"({"context":{"event_id":")" + id + R"("}})";
  }

  static std::uint64_t add(JXOutbox& outbox, const std::string& body) {
    return outbox.add(kTestUrl, body).value_or(0);
  }

  /// Takes all available requests and returns their bodies in order.
  static std::vector<std::string> takeAll(JXOutbox& outbox) {
    std::vector<std::string> bodies;
    while (const auto request = outbox.take())
      bodies.push_back(request->body);
    return bodies;
  }

  /// Returns the bodies of the queued requests that another reader sees in the folder.
  std::vector<std::string> listed() const {
    std::string error;
    std::vector<std::string> bodies;
    for (const JXOutboxListing& each : listOutbox(box_, error))
      bodies.push_back(each.body);
    EXPECT_EQ(error, "");
    return bodies;
  }

  /// Returns the bodies of the dead letters.
  std::vector<std::string> dead() const {
    std::string error;
    std::vector<std::string> bodies;
    for (const JXOutboxListing& each : listDeadLetters(box_, error))
      bodies.push_back(each.body);
    EXPECT_EQ(error, "");
    return bodies;
  }

  std::size_t segments() const { return filesNamed(box_, "segment-"); }
  /// Returns the number of files without those of the locks and of the running time.
  std::size_t files() const {
    // Both names contain this.
    return filesNamed(box_, "") - filesNamed(box_, "lock");
  }

  LogLines log_;
  TemporaryFolder folder_;
  const test::CheckInterval interval_{test::CheckInterval::kNone};
  const std::string box_;
  std::shared_ptr<JXManualClock> clock_ = std::make_shared<JXManualClock>(kTestNowMs);
};

using Bodies = std::vector<std::string>;

inline Bodies sorted(Bodies bodies) {
  std::sort(bodies.begin(), bodies.end());
  return bodies;
}

}  // namespace jx
