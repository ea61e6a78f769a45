// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/platform/JXString.h"

namespace jx {

/// Names of the running kernel and of the hardware, as reported by `uname`.
struct JXKernelNames {
  JXString system;   ///< "Linux"
  JXString release;  ///< "6.1.0"
  JXString machine;  ///< "aarch64"
};

/// Name and version of the operating system.
struct JXOsRelease {
  JXString name;
  JXString version;
};

/// Queries the running kernel; null strings if that fails.
JXKernelNames readKernelNames();

/// Returns NAME and VERSION_ID of /etc/os-release, or of /usr/lib/os-release if that file does not
/// exist; the kernel's name and release for missing values. `root` is the prefix of the paths.
JXOsRelease readOsRelease(const std::string& root, const JXKernelNames& kernel);

/// Returns the model from the device tree or the board's firmware; null if neither contains it, or
/// if it is a placeholder of the vendor or longer than 256 bytes. `root` is the prefix of the
/// paths.
JXString readDeviceModel(const std::string& root);

}  // namespace jx
