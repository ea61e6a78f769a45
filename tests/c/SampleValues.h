// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "jx/catalogue/JXFieldTable.h"

namespace jx::test {

inline std::string jsonString(std::string_view text) {
  std::string result = "\"";
  result.append(text);
  return result.append("\"");
}

/// Returns a sample value for a field of this kind as JSON, by properties. Used by the generated C
/// sources and by the C++ tests.
inline std::string sampleJson(const JXFieldInfo& field) {
  switch (field.kind) {
    case JXFieldKind::String:
      return jsonString("a " + std::string(field.property));
    case JXFieldKind::Number:
      return "12.50";
    case JXFieldKind::Boolean:
      return "true";
    case JXFieldKind::Strings:
    case JXFieldKind::NumberedStrings:
      return R"(["one",null,"three"])";
    case JXFieldKind::Values:
      return R"([1,"two",{"three":3.0}])";
    case JXFieldKind::Enumeration:
      return jsonString(field.enumStrings.enumerators[field.enumStrings.count - 1]);
    case JXFieldKind::Items:
      return R"([{"ID":"i1","quantity":2,"product":{"ID":"p1","price":3.390}},)"
             R"({"ID":"i1","quantity":2,"product":{"ID":"p1","price":3.390}}])";
    case JXFieldKind::Product:
      return R"({"ID":"p1","price":3.390})";
  }
  return {};
}

}  // namespace jx::test
