// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/EventNames.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx {
namespace {

// Short names are one edit away from too many others.
constexpr std::size_t kMinTypoLength = 5;
constexpr std::size_t kMaxTypoLength = 64;

using NameTable = std::unordered_map<std::string_view, const JXEventClass*>;

const NameTable& classesByName() {
  static const NameTable& table = *[] {
    auto* const classes = new NameTable();
    for (const JXEventClass* type : allEventClasses()) {
      for (const std::string_view name : type->eventNames)
        classes->emplace(name, type);
    }
    return classes;
  }();
  return table;
}

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Lower case without separators: the same for "AddToCart", "add-to-cart" and "add_to_cart".
std::string folded(std::string_view name) {
  std::string result;
  for (const char c : name) {
    if (c == '_' || c == '-' || c == ' ' || c == '.') continue;
    result += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return result;
}

// True when one letter was omitted, added, changed or swapped with its neighbour. A digit is not
// considered a typo: "login2" is intentional.
bool isOneEdit(std::string_view longer, std::string_view shorter) {
  if (longer.size() < shorter.size()) std::swap(longer, shorter);
  if (longer.size() > shorter.size() + 1) return false;
  std::size_t at = 0;
  while (at < shorter.size() && longer[at] == shorter[at])
    ++at;
  if (at == longer.size() || !isLetter(longer[at])) return false;
  if (longer.size() > shorter.size()) return longer.substr(at + 1) == shorter.substr(at);
  if (!isLetter(shorter[at])) return false;
  if (longer.substr(at + 1) == shorter.substr(at + 1)) return true;
  return at + 1 < longer.size() && longer[at] == shorter[at + 1] && longer[at + 1] == shorter[at] &&
         longer.substr(at + 2) == shorter.substr(at + 2);
}

class Fingerprint {
 public:
  void add(std::string_view text) {
    for (const char c : text)
      mix(static_cast<unsigned char>(c));
    mix(0x100);  // outside the range of a byte, so that "ab","c" differs from "a","bc"
  }
  void add(int number) { add(std::to_string(number)); }
  void add(const JXFieldTable& table) {
    for (const JXFieldInfo& field : table.fields()) {
      add(field.key);
      add(field.property);
      add(static_cast<int>(field.kind));
      for (const std::string_view choice : field.enumStrings.allStrings())
        add(choice);
    }
  }
  void add(const std::vector<JXCondition>& conditions) {
    for (const JXCondition& condition : conditions) {
      add(static_cast<int>(condition.kind));
      add(condition.key);
      add(condition.otherKey);
      for (const auto* names : {&condition.onlyFor, &condition.exceptFor}) {
        for (const std::string_view name : *names)
          add(name);
        add("");
      }
    }
  }
  std::int64_t value() const { return static_cast<std::int64_t>(state_ >> 1); }

 private:
  void mix(unsigned value) { state_ = (state_ ^ value) * 1099511628211u; }

  std::uint64_t state_ = 14695981039346656037u;
};

}  // namespace

const JXEventClass* classOfEventName(std::string_view eventName) {
  const auto found = classesByName().find(eventName);
  return found == classesByName().end() ? nullptr : found->second;
}

std::string_view suggestedName(std::string_view eventName) {
  if (eventName.size() > kMaxTypoLength || classOfEventName(eventName) != nullptr) return {};
  const std::string ours = folded(eventName);
  std::string_view typo;
  for (const JXEventClass* type : allEventClasses()) {
    for (const std::string_view name : type->eventNames) {
      const std::string theirs = folded(name);
      if (theirs == ours) return name;
      const bool isLong = std::min(ours.size(), theirs.size()) >= kMinTypoLength;
      if (typo.empty() && isLong && isOneEdit(ours, theirs)) typo = name;
    }
  }
  return typo;
}

std::int64_t schemaFingerprint() {
  static const std::int64_t value = [] {
    Fingerprint fingerprint;
    for (const JXEventClass* type : allEventClasses()) {
      fingerprint.add(type->className);
      fingerprint.add(type->base != nullptr ? type->base->className : "");
      for (const std::string_view name : type->eventNames)
        fingerprint.add(name);
      fingerprint.add(*type->written);
      fingerprint.add(type->conditions);
    }
    fingerprint.add(JXItem::fields());
    fingerprint.add(JXItem::conditions());
    fingerprint.add(JXProduct::fields());
    fingerprint.add(JXProduct::conditions());
    return fingerprint.value();
  }();
  return value;
}

}  // namespace jx
