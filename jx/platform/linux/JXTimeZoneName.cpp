// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXTimeZoneName.h"

#include <algorithm>

#include "jx/platform/JXConcat.h"
#include "jx/platform/linux/JXPosixZoneRule.h"
#include "jx/platform/linux/JXSystemFiles.h"

namespace jx {
namespace {

constexpr int kMaxLinks = 8;
constexpr std::string_view kUtc = "UTC";

bool isNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '/' ||
         c == '_' || c == '-' || c == '+';
}

// Zone names have no dots, so a valid name cannot refer to a path outside the database.
bool isZoneName(std::string_view name) {
  constexpr std::size_t kMaxNameLength = 64;
  return !name.empty() && name.size() <= kMaxNameLength && name.front() != '/' &&
         name.back() != '/' && name.find("//") == std::string_view::npos &&
         std::all_of(name.begin(), name.end(), isNameCharacter);
}

// Returns the part after the last folder "zoneinfo"; null if the path has no such folder.
JXString nameBelowDatabase(std::string_view path) {
  constexpr std::string_view kFolder = "zoneinfo/";
  const std::size_t start = path.rfind(kFolder);
  if (start == std::string_view::npos) return nullptr;
  std::string_view name = path.substr(start + kFolder.size());
  for (const std::string_view prefix : {std::string_view("posix/"), std::string_view("right/")}) {
    if (name.substr(0, prefix.size()) == prefix) name.remove_prefix(prefix.size());
  }
  return isZoneName(name) ? JXString(name) : JXString();
}

// Follows links from `path` until one is in the database. The target of the last link need not
// exist.
JXString resolveZoneName(std::string path, const std::string& root) {
  for (int step = 0; step <= kMaxLinks; ++step) {
    const JXString name = nameBelowDatabase(path);
    if (name.isPresent()) return name;
    const JXString target = readSystemLink(root + path);
    if (!target.testString()) return nullptr;
    const bool isAbsolute = target.view().front() == '/';
    path = isAbsolute ? target.toStdString()
                      : path.substr(0, path.rfind('/') + 1) + target.toStdString();
  }
  return nullptr;
}

// The zone database, if it is installed.
class Database {
 public:
  Database(const JXEnvironment& environment, const std::string& root) {
    const JXString folder = variable(environment, "TZDIR");
    folder_ = root + (folder.isPresent() ? folder.toStdString() : "/usr/share/zoneinfo");
  }

  bool isInstalled() const { return systemPathExists(folder_); }
  bool has(std::string_view name) const {
    return isZoneName(name) && systemPathExists(concat({folder_, "/", name}));
  }

 private:
  std::string folder_;
};

JXString nameOfRule(const JXPosixZoneRule& rule, std::string_view text, const Database& database) {
  const std::string_view head = text.substr(0, text.find(','));
  if (database.has(head)) return JXString(head);
  if (!rule.hasSummerTime) {
    const int hours = rule.offsetSeconds / 3600;
    if (hours * 3600 != rule.offsetSeconds || hours > 12 || hours < -14 || hours == 0) {
      return kUtc;
    }
    return JXString(concat({"Etc/GMT", hours > 0 ? "+" : "", std::to_string(hours)}));
  }
  return database.has(rule.letters) ? JXString(rule.letters) : JXString(kUtc);
}

// Returns null if the variable does not determine the zone name.
JXString nameOfVariable(std::string_view text, const Database& database, const std::string& root) {
  if (!text.empty() && text.front() == ':') text.remove_prefix(1);
  if (text.empty()) return kUtc;
  const bool isPath = text.front() == '/';
  // The dates after the comma of a rule may contain a '/'; before the comma only a name may.
  const bool isOneWord = text.substr(0, text.find(',')).find('/') == std::string_view::npos;
  if (isOneWord && !database.has(text)) {
    if (const auto rule = parsePosixZoneRule(text)) return nameOfRule(*rule, text, database);
  }
  const JXString name = isPath ? resolveZoneName(std::string(text.substr(0, 4096)), root)
                               : nameBelowDatabase(concat({"zoneinfo/", text}));
  if (isPath && !name.isPresent()) return nullptr;
  const bool isKnown = name.isPresent() && (database.has(name.view()) || !database.isInstalled());
  return isKnown ? name : JXString(kUtc);
}

}  // namespace

JXString localTimeZoneName(const JXEnvironment& environment, const std::string& root) {
  const Database database(environment, root);
  // An empty TZ means UTC, so jx::variable(), which returns null for it, is not used here.
  const auto entry = environment.find("TZ");
  if (entry != environment.end() && entry->second.isPresent()) {
    const JXString name = nameOfVariable(entry->second.view(), database, root);
    if (name.isPresent()) return name;
  }
  const JXString line = readSystemLine(root + "/etc/timezone");
  if (isZoneName(line.view())) return line;
  const JXString linked = resolveZoneName("/etc/localtime", root);
  return linked.isPresent() ? linked : JXString(kUtc);
}

}  // namespace jx
