// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jx {

/// A message of a stream. The strings belong to the batch that the message is part of.
struct StreamMessage {
  std::int64_t sequence = 0;    ///< position in the stream; the first is 1
  std::int64_t storedAtMs = 0;  ///< time of the broker
  std::string_view subject;
  std::string_view body;
  /// Header `kDiagnosticsHeader`; nullopt for the stream of valid events.
  std::optional<std::string_view> diagnostics;
};

/// A message as a line of NDJSON.
struct EventLine {
  std::string eventId;  ///< "" without one
  std::string text;     ///< ends with a line feed
};

/// The body is copied byte for byte, so that numbers stay exact, except that line breaks, which
/// valid JSON contains only between tokens, become spaces. A body that is not a JSON object is
/// written as Base64.
EventLine eventLineOf(const StreamMessage& message);

}  // namespace jx
