// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jx {

class JsonTree;

/// The fields of a request, read from its body and query, by which the collector finds, counts and
/// distinguishes events. A field that is missing or has the wrong type is nullopt.
struct EventMetadata {
  std::optional<std::string> eventID;          ///< "event_id" in "context"
  std::optional<std::string> name;             ///< "event_name"
  std::optional<std::int64_t> eventTimestamp;  ///< "event_timestamp" in "context"
  std::optional<std::string> session;          ///< "session_id" of the lifecycle block
  std::optional<std::string> videoSession;     ///< "video_session_id"
  std::optional<std::int64_t> site;            ///< query parameter jx_s
  std::optional<std::string> token;            ///< query parameter token, not decoded
  /// Why the body is not an event: "not UTF-8", "not JSON", "nested too deep", "too many values" or
  /// "not a JSON object". nullopt when the body is an object.
  std::optional<std::string> problem;

  /// Reads any bytes, at any nesting depth.
  static EventMetadata read(std::string_view query, std::string_view body);
  static EventMetadata read(std::string_view query, const JsonTree& body);
};

}  // namespace jx
