// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXUserAgentString.h"

#include <string>
#include <string_view>

namespace jx {
namespace {

// A product name in a user agent is one word without separators.
std::string productWord(std::string_view name) {
  std::string word;
  for (const char c : name) {
    const bool isAllowed = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                           (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-' || c == '+';
    word += isAllowed ? c : '-';
  }
  return word;
}

}  // namespace

JXString userAgentString(const JXString& systemName, const JXString& systemVersion,
                         const JXString& machine) {
  if (!systemName.isPresent()) return nullptr;
  std::string userAgent = productWord(systemName.view());
  if (systemVersion.isPresent()) userAgent.append("/").append(productWord(systemVersion.view()));
  if (machine.testString()) userAgent.append(" (").append(productWord(machine.view())).append(")");
  return JXString(userAgent);
}

}  // namespace jx
