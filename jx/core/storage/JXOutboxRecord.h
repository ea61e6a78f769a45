// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace jx {

// What the frames of an outbox hold. A request: kind, length of the URL, creation time, URL, body.
// A settled frame: kind, then the offsets of the requests in the same file that are done with. A
// dead letter: as a request, with status and the number of letters that may be kept.

constexpr std::size_t kJXRequestHeadSize = 16;
constexpr std::size_t kJXDeadLetterHeadSize = 24;
constexpr std::size_t kJXSettledHeadSize = 4;

enum class JXRecordKind { Unknown, Request, Settled, DeadLetter };

/// One decoded frame; the texts are valid as long as the payload.
struct JXOutboxRecord {
  JXRecordKind kind = JXRecordKind::Unknown;
  std::int64_t createdMs = 0;
  std::string_view url;
  std::string_view body;
  std::vector<std::uint32_t> settled;
  int status = 0;
  std::uint32_t keep = 0;
};

/// Unknown when the payload is none of the three.
JXOutboxRecord decodeRecord(std::string_view payload);

void encodeRequestHead(unsigned char (&head)[kJXRequestHeadSize], std::string_view url,
                       std::int64_t createdMs);
void encodeDeadLetterHead(unsigned char (&head)[kJXDeadLetterHeadSize], std::string_view url,
                          std::int64_t createdMs, int status, std::uint32_t keep);
std::vector<unsigned char> encodeSettled(const std::vector<std::uint32_t>& offsets);

}  // namespace jx
