// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/OpenLog.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <tuple>

namespace jx::soak {
namespace {

std::string describe(const OpenCall& call) {
  return call.function + " " + call.path + " (" + call.flags + ") by " + call.caller;
}

std::string shortened(std::string path, const std::map<std::string, std::string>& names) {
  for (const auto& [beginning, name] : names) {
    if (path.rfind(beginning, 0) == 0) path.replace(0, beginning.size(), name);
  }
  static const std::regex number("[0-9a-f]{8,}|[0-9]+");
  return std::regex_replace(path, number, "N");
}

}  // namespace

bool OpenCall::has(const std::string& flag) const {
  return ("|" + flags + "|").find("|" + flag + "|") != std::string::npos;
}

std::map<std::string, std::string> OpenLog::environment() const {
  const char* const options = std::getenv("ASAN_OPTIONS");
  const std::string others = options == nullptr ? "" : std::string(":") + options;
  return {{"LD_PRELOAD", JX_OPEN_RECORDER},
          {"JX_OPENS_LOG", file_},
          // The address sanitizer need not be the first library.
          {"ASAN_OPTIONS", "verify_asan_link_order=0" + others}};
}

std::vector<OpenCall> OpenLog::calls() const {
  std::vector<OpenCall> calls;
  std::ifstream file(file_);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    OpenCall call;
    for (std::string* word :
         {&call.program, &call.caller, &call.function, &call.path, &call.flags}) {
      std::getline(words, *word, '\t');
    }
    words >> call.files;
    call.caller = std::filesystem::path(call.caller).filename().string();
    calls.push_back(call);
  }
  return calls;
}

std::set<std::string> violationsIn(const std::vector<OpenCall>& calls, const std::string& root) {
  static const std::set<std::string> kCreatesFolder{"mkdir", "mkdirat"};
  std::set<std::string> violations;
  for (const OpenCall& call : calls) {
    if (kCreatesFolder.count(call.function) != 0) continue;
    const bool isStored = call.path.rfind(root, 0) == 0;
    if (isStored && !call.has("NOFOLLOW"))
      violations.insert("without O_NOFOLLOW: " + describe(call));
    if ((isStored || call.isOurs()) && !call.has("CLOEXEC"))
      violations.insert("without O_CLOEXEC: " + describe(call));
  }
  return violations;
}

std::vector<std::string> tableOf(const std::vector<OpenCall>& calls,
                                 const std::map<std::string, std::string>& names) {
  std::map<std::tuple<bool, std::string, std::string, std::string, std::string>, int> counts;
  for (const OpenCall& call : calls) {
    const std::string path = shortened(call.path, names);
    ++counts[{!call.isOurs(), path, call.function, call.flags, call.caller}];
  }
  std::vector<std::string> lines;
  for (const auto& [call, count] : counts) {
    const auto& [isForeign, path, function, flags, caller] = call;
    std::ostringstream line;
    line << path << " | " << function << " | " << flags << " | " << caller << " | " << count;
    lines.push_back(line.str());
  }
  return lines;
}

}  // namespace jx::soak
