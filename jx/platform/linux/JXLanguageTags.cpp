// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLanguageTags.h"

#include <algorithm>
#include <string>

#include "jx/platform/linux/JXLocaleName.h"

namespace jx {
namespace {

constexpr std::size_t kMaxTagLength = 35;
constexpr std::size_t kMaxLanguages = 16;

std::string scriptOfModifier(std::string_view modifier) {
  if (modifier == "latin") return "Latn";
  if (modifier == "cyrillic") return "Cyrl";
  if (modifier == "devanagari") return "Deva";
  return {};
}

void append(std::string& tag, std::string_view part) {
  if (part.empty()) return;
  tag += '-';
  tag += part;
}

void addOnce(std::vector<JXString>& tags, const JXString& tag) {
  if (!tag.isPresent() || tags.size() == kMaxLanguages) return;
  if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
}

}  // namespace

JXString languageTag(std::string_view localeName) {
  const JXLocaleName name = parseLocaleName(localeName);
  if (name.language.empty()) return nullptr;
  std::string tag = name.language;
  append(tag, name.script.empty() ? scriptOfModifier(name.modifier) : name.script);
  append(tag, name.territory);
  append(tag, name.variant);
  if (name.modifier == "valencia" && name.variant.empty()) append(tag, name.modifier);
  return tag.size() <= kMaxTagLength ? JXString(tag) : JXString();
}

std::vector<JXString> preferredLanguageTags(const JXEnvironment& environment) {
  const JXString locale = effectiveLocale(environment, "LC_MESSAGES");
  std::vector<JXString> tags;
  if (!locale.isPresent() || locale.view() == "C" || locale.view() == "POSIX") return tags;
  const JXString languages = variable(environment, "LANGUAGE");
  std::string_view rest = languages.view();
  while (!rest.empty() && tags.size() < kMaxLanguages) {
    const std::size_t colon = rest.find(':');
    addOnce(tags, languageTag(rest.substr(0, colon)));
    rest.remove_prefix(colon == std::string_view::npos ? rest.size() : colon + 1);
  }
  addOnce(tags, languageTag(locale.view()));
  return tags;
}

}  // namespace jx
