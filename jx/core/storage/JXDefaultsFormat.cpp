// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDefaultsFormat.h"

#include <algorithm>
#include <utility>

#include "jx/core/storage/JXFrame.h"

namespace jx {
namespace {

constexpr std::size_t kHead = 5;
constexpr std::size_t kCheckpointSize = kHead + 16;
constexpr std::size_t kChangeHead = 9;
constexpr char kValue = 'V';
constexpr char kRemoved = 'X';
constexpr char kCheckpoint = 'C';
// Each start of a process adds a writer. The values that a killed process stored with requests are
// applied by the next start, so older ones are not needed.
constexpr std::size_t kMaxCheckpoints = 32;

char kindOf(const JXString& value) { return value.isPresent() ? kValue : kRemoved; }

}  // namespace

void JXDefaultsContent::apply(std::string_view payload) {
  if (payload.size() < kHead) return;
  const char kind = payload.front();
  if (kind == kCheckpoint) {
    if (payload.size() < kCheckpointSize) return;
    const std::uint64_t writer = getU64(payload.data() + kHead);
    const auto isEarlier = [&](const auto& each) { return each.writer == writer; };
    checkpoints.erase(std::remove_if(checkpoints.begin(), checkpoints.end(), isEarlier),
                      checkpoints.end());
    if (checkpoints.size() == kMaxCheckpoints) checkpoints.erase(checkpoints.begin());
    checkpoints.push_back({writer, getU64(payload.data() + kHead + 8), ++lastPosition});
    return;
  }
  const std::size_t keyLength = getU32(payload.data() + 1);
  if (keyLength > payload.size() - kHead || (kind != kValue && kind != kRemoved)) return;
  JXStoredValue& stored = values[JXString(payload.substr(kHead, keyLength))];
  stored.value = kind == kValue ? JXString(payload.substr(kHead + keyLength)) : JXString();
  stored.position = ++lastPosition;
}

const JXDefaultsCheckpoint* JXDefaultsContent::checkpointOf(std::uint64_t writer) const {
  const auto found = std::find_if(checkpoints.begin(), checkpoints.end(),
                                  [&](const auto& each) { return each.writer == writer; });
  return found == checkpoints.end() ? nullptr : &*found;
}

std::string JXDefaultsContent::encode() const {
  std::vector<const JXDefaultsMap::value_type*> sorted;
  for (const auto& entry : values) {
    if (entry.second.value.isPresent()) sorted.push_back(&entry);
  }
  std::sort(sorted.begin(), sorted.end(), [](const auto* one, const auto* other) {
    return one->second.position < other->second.position;
  });
  std::string frames;
  auto checkpoint = checkpoints.begin();
  const auto encodeCheckpointsUpTo = [&](std::uint64_t position) {
    for (; checkpoint != checkpoints.end() && checkpoint->position <= position; ++checkpoint)
      encodeCheckpoint(checkpoint->writer, checkpoint->sequence, frames);
  };
  for (const auto* entry : sorted) {
    encodeCheckpointsUpTo(entry->second.position);
    encodeValue(entry->first, entry->second.value, frames);
  }
  encodeCheckpointsUpTo(lastPosition);
  return frames;
}

std::uint64_t JXDefaultsContent::compactSize() const {
  std::uint64_t bytes = kJXJournalMagic.size();
  for (const auto& [key, stored] : values) {
    if (stored.value.isPresent())
      bytes += kJXFrameHeaderSize + kHead + key.size() + stored.value.size();
  }
  return bytes;
}

void encodeValue(const JXString& key, const JXString& value, std::string& frames) {
  char head[kHead] = {kindOf(value)};
  putU32(head + 1, static_cast<std::uint32_t>(key.size()));
  encodeFrame({{head, sizeof head}, key.view(), value.view()}, frames);
}

void encodeCheckpoint(std::uint64_t writer, std::uint64_t sequence, std::string& frames) {
  char payload[kCheckpointSize] = {kCheckpoint};
  putU64(payload + kHead, writer);
  putU64(payload + kHead + 8, sequence);
  encodeFrame({{payload, sizeof payload}}, frames);
}

void encodeStoredChanges(std::uint64_t writer, std::uint64_t sequence, std::string& payload) {
  payload.assign(kJXStoredChangesHeadSize, '\0');
  payload[0] = kValue;
  putU64(payload.data() + 4, writer);
  putU64(payload.data() + 12, sequence);
}

void encodeStoredChange(const JXString& key, const JXString& value, std::string& payload) {
  char head[kChangeHead] = {kindOf(value)};
  putU32(head + 1, static_cast<std::uint32_t>(key.size()));
  putU32(head + 5, static_cast<std::uint32_t>(value.size()));
  payload.append(head, sizeof head).append(key.view()).append(value.view());
}

JXStoredChanges::JXStoredChanges(std::string_view payload) {
  if (payload.size() < kJXStoredChangesHeadSize) return;
  writer_ = getU64(payload.data() + 4);
  sequence_ = getU64(payload.data() + 12);
  rest_ = payload.substr(kJXStoredChangesHeadSize);
}

bool JXStoredChanges::next(JXString& key, JXString& value) {
  if (rest_.size() < kChangeHead) return false;
  const char kind = rest_.front();
  const std::size_t keyLength = getU32(rest_.data() + 1);
  const std::size_t valueLength = getU32(rest_.data() + 5);
  rest_.remove_prefix(kChangeHead);
  if (keyLength > rest_.size() || valueLength > rest_.size() - keyLength) return false;
  key = JXString(rest_.substr(0, keyLength));
  value = kind == kValue ? JXString(rest_.substr(keyLength, valueLength)) : JXString();
  rest_.remove_prefix(keyLength + valueLength);
  return kind == kValue || kind == kRemoved;
}

}  // namespace jx
