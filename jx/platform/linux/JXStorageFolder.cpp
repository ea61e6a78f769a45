// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXStorageFolder.h"

#include <string>
#include <string_view>

namespace jx {
namespace {

constexpr std::size_t kMaxPathLength = 3072;
constexpr std::size_t kMaxIdentifierLength = 128;

bool isFolder(const JXString& path) {
  return path.testString() && path.view().front() == '/' && path.size() <= kMaxPathLength;
}

std::string folderName(std::string_view identifier) {
  std::string name(identifier.substr(0, kMaxIdentifierLength));
  for (char& c : name) {
    const bool isAllowed = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                           (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '_';
    if (!isAllowed) c = '_';
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
