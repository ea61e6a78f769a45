// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/SourceRates.h"

#include <algorithm>
#include <functional>

namespace jx {
namespace {

constexpr double kBurstSeconds = 2;
constexpr std::chrono::seconds kSweepInterval{1};

}  // namespace

SourceRates::SourceRates(std::uint32_t perSecond, std::size_t maxSources)
    : perSecond_(perSecond),
      capacity_(perSecond * kBurstSeconds),
      maxPerShard_(std::max<std::size_t>(1, maxSources / kShards)) {
  for (Shard& shard : shards_)
    shard.shared.tokens = capacity_;
}

bool SourceRates::take(std::string_view site, std::string_view key, Clock::time_point now) {
  if (perSecond_ == 0) return true;
  constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15;
  const std::hash<std::string_view> hash;
  const std::uint64_t source = (hash(site) * kMix) ^ hash(key);
  Shard& shard = shards_[source % kShards];
  const std::lock_guard<std::mutex> lock(shard.mutex);
  Bucket& bucket = bucketOf(shard, source, now);
  fill(bucket, now);
  if (bucket.tokens < 1) return false;
  bucket.tokens -= 1;
  return true;
}

SourceRates::Bucket& SourceRates::bucketOf(Shard& shard, std::uint64_t source,
                                           Clock::time_point now) const {
  const auto found = shard.buckets.find(source);
  if (found != shard.buckets.end()) return found->second;
  if (shard.buckets.size() >= maxPerShard_ && now - shard.swept >= kSweepInterval) {
    shard.swept = now;
    // A full bucket is the same as a new one.
    std::erase_if(shard.buckets, [&](const auto& entry) {
      Bucket bucket = entry.second;
      fill(bucket, now);
      return bucket.tokens >= capacity_;
    });
  }
  if (shard.buckets.size() >= maxPerShard_) return shard.shared;
  return shard.buckets.emplace(source, Bucket{capacity_, now}).first->second;
}

void SourceRates::fill(Bucket& bucket, Clock::time_point now) const {
  const double seconds = std::chrono::duration<double>(now - bucket.filled).count();
  bucket.tokens = std::min(capacity_, bucket.tokens + std::max(0.0, seconds) * perSecond_);
  bucket.filled = now;
}

}  // namespace jx
