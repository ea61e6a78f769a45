// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXStorageFolder.h"

#include <string>
#include <string_view>

namespace jx {
namespace {

constexpr std::size_t kLongestPath = 3072;
constexpr std::size_t kLongestIdentifier = 128;

bool isFolder(const JXString& path) {
  return path.testString() && path.view().front() == '/' && path.size() <= kLongestPath;
}

std::string folderName(std::string_view identifier) {
  std::string name(identifier.substr(0, kLongestIdentifier));
  for (char& c : name) {
    const bool isKept = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                        (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '_';
    if (!isKept) c = '_';
  }
  if (name.front() == '.') name.front() = '_';
  return name;
}

}  // namespace

JXString storageFolder(const JXEnvironment& environment, const JXString& bundleIdentifier) {
  const JXString state = variable(environment, "XDG_STATE_HOME");
  const JXString home = variable(environment, "HOME");
  std::string folder;
  if (isFolder(state)) {
    folder = state.toStdString();
  } else if (isFolder(home)) {
    folder = home.toStdString() + "/.local/state";
  } else {
    return nullptr;
  }
  folder += "/jxserverside";
  if (bundleIdentifier.testString()) folder += "/" + folderName(bundleIdentifier.view());
  return JXString(folder);
}

}  // namespace jx
