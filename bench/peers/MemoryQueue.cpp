// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Events in memory: they are lost with the process.

#include <algorithm>
#include <deque>

#include "bench/peers/BatchingQueue.h"

namespace jx::bench {
namespace {

class MemoryStore final : public EventStore {
 public:
  std::uint64_t size() override { return events_.size(); }
  void add(std::string_view body) override { events_.emplace_back(body); }
  std::size_t appendOldest(std::size_t most, std::string& array) override {
    appended_ = std::min(most, events_.size());
    for (std::size_t i = 0; i < appended_; ++i) {
      if (i != 0) array += ',';
      array += events_[i];
    }
    return appended_;
  }
  void removeAppended() override {
    events_.erase(events_.begin(), events_.begin() + static_cast<std::ptrdiff_t>(appended_));
  }

 private:
  std::deque<std::string> events_;
  std::size_t appended_ = 0;
};

}  // namespace

std::unique_ptr<Queue> createQueue(const QueueOptions& options) {
  return std::make_unique<BatchingQueue>(options, std::make_unique<MemoryStore>());
}

}  // namespace jx::bench
