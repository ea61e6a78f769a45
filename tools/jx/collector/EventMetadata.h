// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jx {

class JsonTree;

/// What the collector knows about a request from its body and its query: the fields by which
/// events are found, counted and told apart. A field that is missing, or of another type, is
/// absent.
struct EventMetadata {
  std::optional<std::string> eventID;          ///< "event_id" in "context"
  std::optional<std::string> name;             ///< "event_name"
  std::optional<std::int64_t> eventTimestamp;  ///< "event_timestamp" in "context"
  std::optional<std::string> session;          ///< "session_id" of the lifecycle block
  std::optional<std::string> videoSession;     ///< "video_session_id"
  std::optional<std::int64_t> site;            ///< query parameter jx_s
  std::optional<std::string> token;            ///< query parameter token, as it was written
  /// Why the body is no event: "not UTF-8", "not JSON", "nested too deep", "too many values" or
  /// "not a JSON object". Absent when it is an object.
  std::optional<std::string> problem;

  /// Reads any bytes, nested however deep.
  static EventMetadata read(std::string_view query, std::string_view body);
  static EventMetadata read(std::string_view query, const JsonTree& body);
};

}  // namespace jx
