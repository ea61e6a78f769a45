// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXOsRelease.h"

#include <sys/utsname.h>

#include <string_view>

#include "jx/platform/linux/JXSystemFiles.h"

namespace jx {
namespace {

constexpr std::size_t kMaxValueLength = 256;

// Returns the value of a shell assignment: unquoted, in single quotes, or in double quotes with '\'
// before special characters.
std::string unquote(std::string_view value) {
  const char quote = value.empty() ? '\0' : value.front();
  const bool isQuoted = quote == '"' || quote == '\'';
  if (isQuoted) value.remove_prefix(1);
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (isQuoted && value[i] == quote) break;
    if (quote == '"' && value[i] == '\\' && i + 1 < value.size()) ++i;
    text += value[i];
  }
  return text;
}

JXString valueOf(std::string_view file, std::string_view key) {
  JXString found;
  while (!file.empty()) {
    const std::size_t end = file.find('\n');
    const std::string_view line = trimBlanks(file.substr(0, end));
    file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
    if (line.size() <= key.size() || line.substr(0, key.size()) != key || line[key.size()] != '=') {
      continue;
    }
    const std::string value = unquote(line.substr(key.size() + 1));
    const std::string_view trimmed = trimBlanks(value);
    if (!trimmed.empty() && trimmed.size() <= kMaxValueLength) found = JXString(trimmed);
  }
  return found;
}

bool isPlaceholder(std::string_view model) {
  static constexpr std::string_view kPlaceholders[] = {"To be filled by O.E.M.",
                                                       "To Be Filled By O.E.M.",
                                                       "System Product Name",
                                                       "Default string",
                                                       "Not Applicable",
                                                       "Not Specified",
                                                       "None",
                                                       "Unknown"};
  for (const std::string_view placeholder : kPlaceholders) {
    if (model == placeholder) return true;
  }
  return false;
}

}  // namespace

JXKernelNames readKernelNames() {
  utsname names{};
  if (::uname(&names) != 0) return {};
  return {JXString(names.sysname), JXString(names.release), JXString(names.machine)};
}

JXOsRelease readOsRelease(const std::string& root, const JXKernelNames& kernel) {
  JXString file = readSystemFile(root + "/etc/os-release");
  if (!file.isPresent()) file = readSystemFile(root + "/usr/lib/os-release");
  JXOsRelease release{valueOf(file.view(), "NAME"), valueOf(file.view(), "VERSION_ID")};
  if (!release.name.isPresent()) release.name = kernel.system;
  if (!release.version.isPresent()) release.version = kernel.release;
  return release;
}

JXString readDeviceModel(const std::string& root) {
  for (const char* path :
       {"/sys/firmware/devicetree/base/model", "/sys/class/dmi/id/product_name"}) {
    const JXString model = readSystemLine(root + path);
    const bool isShort = model.isPresent() && model.size() <= kMaxValueLength;
    if (isShort && !isPlaceholder(model.view())) return model;
  }
  return nullptr;
}

}  // namespace jx
