// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxRecord.h"

#include <algorithm>

#include "jx/core/storage/JXBytes.h"

namespace jx {
namespace {

constexpr unsigned char kRequest = 'Q';
constexpr unsigned char kSettled = 'S';
constexpr unsigned char kDeadLetter = 'D';

void encodeHead(unsigned char* head, unsigned char kind, std::string_view url,
                std::int64_t createdMs) {
  std::fill(head, head + 4, static_cast<unsigned char>(0));
  head[0] = kind;
  putU32(head + 4, static_cast<std::uint32_t>(url.size()));
  putU64(head + 8, static_cast<std::uint64_t>(createdMs));
}

// The part that a request and a dead letter have in common.
bool decodeTexts(std::string_view payload, std::size_t headSize, JXOutboxRecord& record) {
  if (payload.size() < headSize) return false;
  const std::size_t urlLength = getU32(payload.data() + 4);
  const std::string_view texts = payload.substr(headSize);
  if (urlLength > texts.size()) return false;
  record.createdMs = static_cast<std::int64_t>(getU64(payload.data() + 8));
  record.url = texts.substr(0, urlLength);
  record.body = texts.substr(urlLength);
  return true;
}

}  // namespace

JXOutboxRecord decodeRecord(std::string_view payload) {
  JXOutboxRecord record;
  const unsigned char kind = payload.empty() ? 0 : static_cast<unsigned char>(payload.front());
  if (kind == kRequest && decodeTexts(payload, kJXRequestHeadSize, record)) {
    record.kind = JXRecordKind::Request;
  } else if (kind == kDeadLetter && decodeTexts(payload, kJXDeadLetterHeadSize, record)) {
    record.kind = JXRecordKind::DeadLetter;
    record.status = static_cast<int>(getU32(payload.data() + 16));
    record.keep = getU32(payload.data() + 20);
  } else if (kind == kSettled) {
    record.kind = JXRecordKind::Settled;
    for (std::size_t at = kJXSettledHeadSize; at + 4 <= payload.size(); at += 4) {
      record.settled.push_back(getU32(payload.data() + at));
    }
  }
  return record;
}

void encodeRequestHead(unsigned char (&head)[kJXRequestHeadSize], std::string_view url,
                       std::int64_t createdMs) {
  encodeHead(head, kRequest, url, createdMs);
}

void encodeDeadLetterHead(unsigned char (&head)[kJXDeadLetterHeadSize], std::string_view url,
                          std::int64_t createdMs, int status, std::uint32_t keep) {
  encodeHead(head, kDeadLetter, url, createdMs);
  putU32(head + 16, static_cast<std::uint32_t>(status));
  putU32(head + 20, keep);
}

std::vector<unsigned char> encodeSettled(const std::vector<std::uint32_t>& offsets) {
  std::vector<unsigned char> payload(kJXSettledHeadSize + 4 * offsets.size());
  payload[0] = kSettled;
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    putU32(payload.data() + kJXSettledHeadSize + 4 * i, offsets[i]);
  }
  return payload;
}

}  // namespace jx
