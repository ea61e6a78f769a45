// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string_view>
#include <unordered_map>

namespace jx {

/// Limits the events per second of each source. A source may send the events of two seconds at
/// once. Thread-safe. The memory is bounded: when very many sources send at the same time, those
/// above the bound share one limit.
class SourceRates {
 public:
  using Clock = std::chrono::steady_clock;

  /// `perSecond` 0: no limit.
  explicit SourceRates(std::uint32_t perSecond, std::size_t maxSources = 65'536);

  /// Returns whether the source may send one more event now, and counts it.
  bool take(std::string_view site, std::string_view key, Clock::time_point now);

 private:
  struct Bucket {
    double tokens = 0;
    Clock::time_point filled;
  };
  // Several, so that the threads seldom wait for each other.
  struct Shard {
    std::mutex mutex;
    std::unordered_map<std::uint64_t, Bucket> buckets;
    Bucket shared;
    Clock::time_point swept;
  };
  static constexpr std::size_t kShards = 16;

  Bucket& bucketOf(Shard& shard, std::uint64_t source, Clock::time_point now) const;
  void fill(Bucket& bucket, Clock::time_point now) const;

  const double perSecond_;
  const double capacity_;
  const std::size_t maxPerShard_;
  std::array<Shard, kShards> shards_;
};

}  // namespace jx
