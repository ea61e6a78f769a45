// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXIntegrityProbe.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>

#if defined(__APPLE__)
#include <TargetConditionals.h>
#endif

namespace jx {
namespace {

constexpr const char* kForeignPaths[] = {
    "/bin/bash",
    "/usr/sbin/sshd",
    "/usr/bin/ssh",
    "/usr/bin/dpkg",
    "/etc/apt",
    "/var/lib/dpkg",
    "/private/var/lib/apt",
    "/private/var/jb",
    "/Library/MobileSubstrate/DynamicLibraries",
};

// Does not read time or size of the file, because applications must declare a reason for that. A
// link exists even if its target does not.
bool exists(const std::string& path) {
  char target[1];
  return ::access(path.c_str(), F_OK) == 0 || ::readlink(path.c_str(), target, sizeof target) >= 0;
}

}  // namespace

bool isSystemModified(const std::string& root) {
#if defined(TARGET_OS_SIMULATOR) && TARGET_OS_SIMULATOR
  // The simulator shows the files of the computer that it runs on.
  static_cast<void>(root);
  return false;
#else
  return std::any_of(std::begin(kForeignPaths), std::end(kForeignPaths),
                     [&](const char* path) { return exists(root + path); });
#endif
}

}  // namespace jx
