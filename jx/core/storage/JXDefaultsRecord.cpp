// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDefaultsRecord.h"

#include "jx/core/storage/JXBytes.h"

namespace jx {
namespace {

// Payload: kind (1 byte), length of the key (4), key, value.
constexpr std::size_t kHead = 5;
constexpr char kValue = 'V';
constexpr char kRemoved = 'X';

// Calls `use` with the parts of the payload that sets `key` to `value`.
template <typename Use>
int withParts(const JXString& key, const JXString& value, const Use& use) {
  unsigned char head[kHead];
  head[0] = static_cast<unsigned char>(value.isPresent() ? kValue : kRemoved);
  putU32(head + 1, static_cast<std::uint32_t>(key.size()));
  const std::string_view parts[] = {
      {reinterpret_cast<const char*>(head), sizeof head}, key.view(), value.view()};
  return use(parts, std::size_t{3});
}

}  // namespace

int appendDefault(JXJournal& journal, const JXString& key, const JXString& value) {
  return withParts(key, value, [&](const std::string_view* parts, std::size_t count) {
    return journal.append(parts, count, nullptr);
  });
}

void encodeDefault(const JXString& key, const JXString& value, std::string& frames) {
  withParts(key, value, [&](const std::string_view* parts, std::size_t count) {
    encodeFrame(parts, count, frames);
    return 0;
  });
}

void applyDefault(std::string_view payload, JXDefaultsMap& values) {
  if (payload.size() < kHead) return;
  const char kind = payload.front();
  const std::size_t keyLength = getU32(payload.data() + 1);
  if (keyLength > payload.size() - kHead) return;
  const JXString key(payload.substr(kHead, keyLength));
  if (kind == kValue) {
    values[key] = JXString(payload.substr(kHead + keyLength));
  } else if (kind == kRemoved) {
    values.erase(key);
  }
}

std::uint64_t bytesOfDefaults(const JXDefaultsMap& values) {
  std::uint64_t bytes = kJXJournalMagic.size();
  for (const auto& [key, value] : values) {
    bytes += kJXFrameHeaderSize + kHead + key.size() + value.size();
  }
  return bytes;
}

}  // namespace jx
