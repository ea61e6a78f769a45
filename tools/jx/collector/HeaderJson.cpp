// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/HeaderJson.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

std::string stringMember(const rapidjson::Value& object, const char* name) {
  const auto member = object.FindMember(name);
  if (member == object.MemberEnd() || !member->value.IsString()) return {};
  return std::string(member->value.GetString(), member->value.GetStringLength());
}

}  // namespace

std::string headersToJson(const HeaderList& headers) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  const auto write = [&writer](const char* key, const std::string& value) {
    const std::string text = withReplacementCharacters(value);
    writer.Key(key);
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  };
  writer.StartArray();
  for (const auto& [name, value] : headers) {
    writer.StartObject();
    write("name", name);
    write("value", value);
    writer.EndObject();
  }
  writer.EndArray();
  return std::string(buffer.GetString(), buffer.GetSize());
}

HeaderList headersFromJson(std::string_view json) {
  HeaderList headers;
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag>(json.data() ? json.data() : "", json.size());
  if (document.HasParseError() || !document.IsArray()) return headers;
  for (const rapidjson::Value& header : document.GetArray()) {
    if (!header.IsObject()) continue;
    headers.emplace_back(stringMember(header, "name"), stringMember(header, "value"));
  }
  return headers;
}

}  // namespace jx
