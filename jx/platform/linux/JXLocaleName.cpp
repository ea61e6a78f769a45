// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLocaleName.h"

#include <algorithm>
#include <vector>

#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

constexpr std::size_t kMaxSubtagLength = 8;

bool isAlnum(char c) { return isAlpha(c) || isDigit(c); }
char lower(char c) { return isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c; }
char upper(char c) { return isAlpha(c) && !isUpper(c) ? static_cast<char>(c - 'a' + 'A') : c; }

bool all(std::string_view text, bool (*test)(char)) {
  return std::all_of(text.begin(), text.end(), test);
}

std::string changed(std::string_view text, char (*change)(char)) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), change);
  return result;
}

bool isTerritory(std::string_view part) {
  return (part.size() == 2 && all(part, isAlpha)) || (part.size() == 3 && all(part, isDigit));
}

std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find_first_of("_-");
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

// Sets language, script, territory and variant; returns false if the name is malformed.
bool parseSubtags(std::string_view text, JXLocaleName& name) {
  const std::vector<std::string_view> parts = split(text);
  const std::string_view language = parts.front();
  if (language.size() < 2 || language.size() > 3 || !all(language, isAlpha)) return false;
  name.language = changed(language, lower);
  std::size_t next = 1;
  if (next < parts.size() && parts[next].size() == 4 && all(parts[next], isAlpha)) {
    name.script = changed(parts[next++], lower);
    name.script[0] = upper(name.script[0]);
  }
  if (next < parts.size() && isTerritory(parts[next])) {
    name.territory = changed(parts[next++], upper);
  }
  for (; next < parts.size(); ++next) {
    const std::string_view part = parts[next];
    if (part.empty() || part.size() > kMaxSubtagLength || !all(part, isAlnum)) return false;
    if (!name.variant.empty()) name.variant += '-';
    name.variant += changed(part, lower);
  }
  return true;
}

bool isNamePart(char c) { return isAlnum(c) || c == '-' || c == '_' || c == '.' || c == ':'; }

}  // namespace

JXLocaleName parseLocaleName(std::string_view text) {
  constexpr std::size_t kMaxNameLength = 128;
  if (text.empty() || text.size() > kMaxNameLength || isPlainLocale(text)) return {};
  JXLocaleName name;
  const std::size_t at = text.find('@');
  if (at != std::string_view::npos) name.modifier = text.substr(at + 1);
  std::string_view rest = text.substr(0, at);
  const std::size_t dot = rest.find('.');
  if (dot != std::string_view::npos) name.codeset = rest.substr(dot + 1);
  const bool wellFormed = all(name.modifier, isNamePart) && all(name.codeset, isNamePart) &&
                          parseSubtags(rest.substr(0, dot), name);
  return wellFormed ? name : JXLocaleName{};
}

bool isPlainLocale(std::string_view name) {
  const std::string_view base = name.substr(0, name.find_first_of(".@"));
  return base == "C" || base == "POSIX";
}

JXString effectiveLocale(const JXEnvironment& environment, std::string_view category) {
  for (const std::string_view name :
       {std::string_view("LC_ALL"), category, std::string_view("LANG")}) {
    const JXString value = variable(environment, name);
    if (value.isPresent()) return value;
  }
  return nullptr;
}

}  // namespace jx
