// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jx {

/// A moment, as an outbox stores it; see JXRunningTime.
struct JXStoredTime {
  std::uint64_t series = 0;    ///< running times of different series cannot be compared; never 0
  std::int64_t dayMs = 0;      ///< time of day, in milliseconds since 1970; may jump
  std::int64_t runningMs = 0;  ///< running time
  std::int64_t systemMs = 0;   ///< time since the start of the system
  /// Identifies the start of the system, 0 if it is not known; 24 bits.
  std::uint32_t systemStart = 0;
};

/// The server errors of a request so far. It is retried `delay` after the last one.
struct JXRequestFailures {
  std::uint16_t count = 0;
  bool hasRetryAfter = false;  ///< the server requested the delay, so a flush does not shorten it
  std::chrono::milliseconds delay{0};
  std::int64_t firstMs = 0;    ///< running time of the first one
  std::int64_t lastMs = 0;     ///< running time of the last one
  std::int64_t lastDayMs = 0;  ///< time of day of the last one; not stored
};

/// A queued request.
struct JXOutboxRequest {
  std::uint64_t id = 0;        ///< identifies the request in this process only
  std::int64_t createdMs = 0;  ///< time of day at which it was added
  std::int64_t bornMs = 0;     ///< running time at which it was added
  std::string url;
  std::string body;
  JXRequestFailures failures;
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
// requests in the same file. Failures: kind, whether there was a Retry-After, number of failures (2
// bytes), offset of the request in the same file, delay in milliseconds (4 bytes), running times of
// the first and the last failure; the last such frame of a request applies. A dead letter: as a
// request without policy and stops, with the HTTP status and the number of dead letters to keep. A
// time: kind, start of the system (3 bytes), series, time of day, running time, time since the
// start of the system; it gives the running time of the frames that follow. Changes of the user
// defaults, in front of the request that made them: see JXDefaultsFormat.h.

constexpr std::size_t kJXRequestHeadSize = 16;
constexpr std::size_t kJXDeadLetterHeadSize = 24;
constexpr std::size_t kJXAcknowledgementHeadSize = 4;
constexpr std::size_t kJXFailuresSize = 28;
constexpr std::size_t kJXTimeSize = 36;

/// The first byte of a payload.
enum class JXRecordKind : char {
  Unknown,
  Request = 'Q',
  Acknowledgement = 'S',
  Failures = 'F',
  DeadLetter = 'D',
  Time = 'T',
  Changes = 'V'
};

/// A decoded frame; the string views are valid as long as the payload.
struct JXOutboxRecord {
  JXRecordKind kind = JXRecordKind::Unknown;
  std::int64_t createdMs = 0;
  JXRequestOrigin origin;
  std::string_view url;
  std::string_view body;
  std::vector<std::uint32_t> acknowledged;  ///< offsets of requests in the same file
  JXRequestFailures failures;
  std::uint32_t failed = 0;  ///< offset of the request that `failures` belong to
  int status = 0;
  std::uint32_t keep = 0;
  JXStoredTime time;
};

/// Decodes a payload, except that of changes. The kind is Unknown when the payload is none of the
/// six.
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
/// Returns the payload with the failures of the request at `offset`.
std::string encodeFailures(std::uint32_t offset, const JXRequestFailures& failures);
/// Returns the payload of a time.
std::string encodeTime(const JXStoredTime& time);

}  // namespace jx
