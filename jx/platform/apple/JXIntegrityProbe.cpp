// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXIntegrityProbe.h"

#include <sys/stat.h>

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

}  // namespace

bool isSystemModified(const std::string& root) {
#if defined(TARGET_OS_SIMULATOR) && TARGET_OS_SIMULATOR
  // The simulator shows the files of the computer that it runs on.
  static_cast<void>(root);
  return false;
#else
  return std::any_of(std::begin(kForeignPaths), std::end(kForeignPaths), [&](const char* path) {
    struct stat status {};
    return ::lstat((root + path).c_str(), &status) == 0;
  });
#endif
}

}  // namespace jx
