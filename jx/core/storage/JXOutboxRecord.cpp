// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxRecord.h"

#include "jx/core/storage/JXFrame.h"

namespace jx {
namespace {

template <class Head>
Head encodeHead(JXRecordKind kind, std::string_view url, std::int64_t createdMs) {
  Head head{static_cast<char>(kind)};
  putU32(head.data() + 4, static_cast<std::uint32_t>(url.size()));
  putU64(head.data() + 8, static_cast<std::uint64_t>(createdMs));
  return head;
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

// A policy of a later version counts as unknown.
JXRequestOrigin decodeOrigin(std::string_view payload) {
  JXRequestOrigin origin;
  const auto policy = static_cast<std::uint8_t>(payload[1]);
  if (policy <= static_cast<std::uint8_t>(JXSendPolicy::AsksFirst)) {
    origin.policy = static_cast<JXSendPolicy>(policy);
  }
  origin.stops = static_cast<std::uint16_t>(getU32(payload.data()) >> 16);
  return origin;
}

void decodeFailures(std::string_view payload, JXOutboxRecord& record) {
  record.kind = JXRecordKind::Failures;
  record.failed = getU32(payload.data() + 4);
  record.failures.hasRetryAfter = payload[1] != 0;
  record.failures.count = static_cast<std::uint16_t>(getU32(payload.data()) >> 16);
  record.failures.delay = std::chrono::milliseconds(getU32(payload.data() + 8));
  record.failures.firstMs = static_cast<std::int64_t>(getU64(payload.data() + 12));
  record.failures.lastMs = static_cast<std::int64_t>(getU64(payload.data() + 20));
}

JXStoredTime decodeTime(std::string_view payload) {
  JXStoredTime time;
  time.systemStart = getU32(payload.data()) >> 8;
  time.series = getU64(payload.data() + 4);
  time.dayMs = static_cast<std::int64_t>(getU64(payload.data() + 12));
  time.runningMs = static_cast<std::int64_t>(getU64(payload.data() + 20));
  time.systemMs = static_cast<std::int64_t>(getU64(payload.data() + 28));
  return time;
}

}  // namespace

JXOutboxRecord decodeRecord(std::string_view payload) {
  JXOutboxRecord record;
  const auto kind = payload.empty() ? JXRecordKind::Unknown : JXRecordKind{payload.front()};
  if (kind == JXRecordKind::Request) {
    if (!decodeUrlAndBody(payload, kJXRequestHeadSize, record)) return record;
    record.kind = kind;
    record.origin = decodeOrigin(payload);
  } else if (kind == JXRecordKind::DeadLetter) {
    if (!decodeUrlAndBody(payload, kJXDeadLetterHeadSize, record)) return record;
    record.kind = kind;
    record.status = static_cast<int>(getU32(payload.data() + 16));
    record.keep = getU32(payload.data() + 20);
  } else if (kind == JXRecordKind::Failures) {
    if (payload.size() >= kJXFailuresSize) decodeFailures(payload, record);
  } else if (kind == JXRecordKind::Time) {
    if (payload.size() < kJXTimeSize) return record;
    record.kind = kind;
    record.time = decodeTime(payload);
  } else if (kind == JXRecordKind::Changes) {
    record.kind = kind;
  } else if (kind == JXRecordKind::Acknowledgement) {
    record.kind = kind;
    for (std::size_t at = kJXAcknowledgementHeadSize; at + 4 <= payload.size(); at += 4) {
      record.acknowledged.push_back(getU32(payload.data() + at));
    }
  }
  return record;
}

JXRequestHead encodeRequestHead(std::string_view url, std::int64_t createdMs,
                                const JXRequestOrigin& origin) {
  auto head = encodeHead<JXRequestHead>(JXRecordKind::Request, url, createdMs);
  head[1] = static_cast<char>(origin.policy);
  head[2] = static_cast<char>(origin.stops);
  head[3] = static_cast<char>(origin.stops >> 8);
  return head;
}

JXDeadLetterHead encodeDeadLetterHead(std::string_view url, std::int64_t createdMs, int status,
                                      std::uint32_t keep) {
  auto head = encodeHead<JXDeadLetterHead>(JXRecordKind::DeadLetter, url, createdMs);
  putU32(head.data() + 16, static_cast<std::uint32_t>(status));
  putU32(head.data() + 20, keep);
  return head;
}

std::string encodeAcknowledgement(const std::vector<std::uint32_t>& offsets) {
  std::string payload(kJXAcknowledgementHeadSize + 4 * offsets.size(), '\0');
  payload[0] = static_cast<char>(JXRecordKind::Acknowledgement);
  for (std::size_t i = 0; i < offsets.size(); ++i)
    putU32(payload.data() + kJXAcknowledgementHeadSize + 4 * i, offsets[i]);
  return payload;
}

std::string encodeFailures(std::uint32_t offset, const JXRequestFailures& failures) {
  std::string payload(kJXFailuresSize, '\0');
  payload[0] = static_cast<char>(JXRecordKind::Failures);
  payload[1] = failures.hasRetryAfter ? 1 : 0;
  payload[2] = static_cast<char>(failures.count);
  payload[3] = static_cast<char>(failures.count >> 8);
  putU32(payload.data() + 4, offset);
  putU32(payload.data() + 8, static_cast<std::uint32_t>(failures.delay.count()));
  putU64(payload.data() + 12, static_cast<std::uint64_t>(failures.firstMs));
  putU64(payload.data() + 20, static_cast<std::uint64_t>(failures.lastMs));
  return payload;
}

std::string encodeTime(const JXStoredTime& time) {
  std::string payload(kJXTimeSize, '\0');
  putU32(payload.data(), time.systemStart << 8 | static_cast<unsigned char>(JXRecordKind::Time));
  putU64(payload.data() + 4, time.series);
  putU64(payload.data() + 12, static_cast<std::uint64_t>(time.dayMs));
  putU64(payload.data() + 20, static_cast<std::uint64_t>(time.runningMs));
  putU64(payload.data() + 28, static_cast<std::uint64_t>(time.systemMs));
  return payload;
}

}  // namespace jx
