// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxRecord.h"

#include <algorithm>

#include "jx/core/storage/JXBytes.h"

namespace jx {
namespace {

constexpr unsigned char kRequest = 'Q';
constexpr unsigned char kAcknowledgement = 'S';
constexpr unsigned char kDeadLetter = 'D';

void encodeHead(unsigned char* head, unsigned char kind, std::string_view url,
                std::int64_t createdMs) {
  std::fill(head, head + 4, static_cast<unsigned char>(0));
  head[0] = kind;
  putU32(head + 4, static_cast<std::uint32_t>(url.size()));
  putU64(head + 8, static_cast<std::uint64_t>(createdMs));
}

// Decodes the fields that a request and a dead letter have in common.
bool decodeUrlAndBody(std::string_view payload, std::size_t headSize, JXOutboxRecord& record) {
  if (payload.size() < headSize) return false;
  const std::size_t urlLength = getU32(payload.data() + 4);
  const std::string_view strings = payload.substr(headSize);
  if (urlLength > strings.size()) return false;
  record.createdMs = static_cast<std::int64_t>(getU64(payload.data() + 8));
  record.url = strings.substr(0, urlLength);
  record.body = strings.substr(urlLength);
  return true;
}

}  // namespace

JXOutboxRecord decodeRecord(std::string_view payload) {
  JXOutboxRecord record;
  const unsigned char kind = payload.empty() ? 0 : static_cast<unsigned char>(payload.front());
  if (kind == kRequest && decodeUrlAndBody(payload, kJXRequestHeadSize, record)) {
    record.kind = JXRecordKind::Request;
  } else if (kind == kDeadLetter && decodeUrlAndBody(payload, kJXDeadLetterHeadSize, record)) {
    record.kind = JXRecordKind::DeadLetter;
    record.status = static_cast<int>(getU32(payload.data() + 16));
    record.keep = getU32(payload.data() + 20);
  } else if (kind == kAcknowledgement) {
    record.kind = JXRecordKind::Acknowledgement;
    for (std::size_t at = kJXAcknowledgementHeadSize; at + 4 <= payload.size(); at += 4) {
      record.acknowledged.push_back(getU32(payload.data() + at));
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

std::vector<unsigned char> encodeAcknowledgement(const std::vector<std::uint32_t>& offsets) {
  std::vector<unsigned char> payload(kJXAcknowledgementHeadSize + 4 * offsets.size());
  payload[0] = kAcknowledgement;
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    putU32(payload.data() + kJXAcknowledgementHeadSize + 4 * i, offsets[i]);
  }
  return payload;
}

}  // namespace jx
