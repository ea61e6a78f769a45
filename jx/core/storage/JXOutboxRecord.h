// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jx {

/// A queued request.
struct JXOutboxRequest {
  std::uint64_t id = 0;  ///< identifies the request in this process only
  std::int64_t createdMs = 0;
  std::string url;
  std::string body;
};

/// How the ServerSide that executed a request decides whether its requests may be sent. The values
/// are stored in files.
enum class JXSendPolicy : std::uint8_t {
  Unknown,        ///< written by an early revision, or not executed by a ServerSide
  Enabled,        ///< starts enabled; applies stops
  AlwaysEnabled,  ///< ignores stops
  AsksFirst       ///< starts disabled or waits for consent; applies stops
};

/// The part of a request's origin that is stored with it.
struct JXRequestOrigin {
  JXSendPolicy policy = JXSendPolicy::Unknown;
  /// Number of stops recorded for the source before the request; see JXStopMarks.
  std::uint16_t stops = 0;
};

// The payloads of an outbox's frames. A request: kind, policy, number of stops (2 bytes), length of
// the URL, creation time, URL, body. An acknowledgement: kind, then the offsets of the acknowledged
// requests in the same file. A dead letter: as a request without policy and stops, with the HTTP
// status and the number of dead letters to keep.

constexpr std::size_t kJXRequestHeadSize = 16;
constexpr std::size_t kJXDeadLetterHeadSize = 24;
constexpr std::size_t kJXAcknowledgementHeadSize = 4;

/// The first byte of a payload.
enum class JXRecordKind : char { Unknown, Request = 'Q', Acknowledgement = 'S', DeadLetter = 'D' };

/// A decoded frame; the string views are valid as long as the payload.
struct JXOutboxRecord {
  JXRecordKind kind = JXRecordKind::Unknown;
  std::int64_t createdMs = 0;
  JXRequestOrigin origin;
  std::string_view url;
  std::string_view body;
  std::vector<std::uint32_t> acknowledged;  ///< offsets of requests in the same file
  int status = 0;
  std::uint32_t keep = 0;
};

/// Decodes a payload. The kind is Unknown when the payload is none of the three.
JXOutboxRecord decodeRecord(std::string_view payload);

/// The beginning of a payload, followed by the URL and the body.
using JXRequestHead = std::array<char, kJXRequestHeadSize>;
using JXDeadLetterHead = std::array<char, kJXDeadLetterHeadSize>;
JXRequestHead encodeRequestHead(std::string_view url, std::int64_t createdMs,
                                const JXRequestOrigin& origin);
JXDeadLetterHead encodeDeadLetterHead(std::string_view url, std::int64_t createdMs, int status,
                                      std::uint32_t keep);
/// Returns the payload of an acknowledgement.
std::string encodeAcknowledgement(const std::vector<std::uint32_t>& offsets);

}  // namespace jx
