// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventMetadata.h"

#include <charconv>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {
namespace {

std::optional<std::string> problemOf(const JsonTree& body) {
  switch (body.problem()) {
    case JsonTree::Problem::NotUtf8:
      return "not UTF-8";
    case JsonTree::Problem::NotJson:
      return "not JSON";
    case JsonTree::Problem::TooDeep:
      return "nested too deep";
    case JsonTree::Problem::TooMany:
      return "too many values";
    case JsonTree::Problem::None:
      break;
  }
  if (!body.isObject(0)) return "not a JSON object";
  return std::nullopt;
}

std::optional<std::string_view> parameter(std::string_view query, std::string_view name) {
  while (!query.empty()) {
    const std::size_t end = query.find('&');
    const std::string_view pair = query.substr(0, end);
    const std::size_t equals = pair.find('=');
    if (equals != std::string_view::npos && pair.substr(0, equals) == name) {
      return pair.substr(equals + 1);
    }
    query = end == std::string_view::npos ? std::string_view() : query.substr(end + 1);
  }
  return std::nullopt;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::uint32_t> valueAt(const JsonTree& tree,
                                     std::initializer_list<std::string_view> path) {
  std::optional<std::uint32_t> at = 0;
  for (const std::string_view key : path) {
    if (at) at = tree.find(*at, key);
  }
  return at;
}

std::optional<std::string> textAt(const JsonTree& tree,
                                  std::initializer_list<std::string_view> path) {
  const std::optional<std::uint32_t> at = valueAt(tree, path);
  if (!at || tree.node(*at).kind != JsonNode::Kind::String) return std::nullopt;
  return std::string(tree.node(*at).text);
}

}  // namespace

EventMetadata EventMetadata::read(std::string_view query, std::string_view body) {
  return read(query, JsonTree::read(body));
}

EventMetadata EventMetadata::read(std::string_view query, const JsonTree& body) {
  EventMetadata metadata;
  if (const auto site = parameter(query, "jx_s")) metadata.site = wholeNumber(*site);
  if (const auto token = parameter(query, "token")) metadata.token = std::string(*token);
  metadata.problem = problemOf(body);
  if (metadata.problem) return metadata;
  metadata.name = textAt(body, {JXE_EVENT});
  metadata.eventID = textAt(body, {JXE_CONTEXT, JXE_EVENTID});
  metadata.session = textAt(body, {JXE_CONTEXT, JXD_DEVICE, JXL_LIFECYCLE, JXL_SESSION_ID});
  metadata.videoSession = textAt(body, {JXV_VIDEO_SESSION_ID});
  const auto timestamp = valueAt(body, {JXE_CONTEXT, JX_EVENTTIMESTAMP});
  if (timestamp && body.node(*timestamp).kind == JsonNode::Kind::Number) {
    metadata.eventTimestamp = wholeNumber(body.node(*timestamp).text);
  }
  return metadata;
}

}  // namespace jx
