// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/platform/JXString.h"

namespace jx {

/// What the running kernel says about itself and the hardware, as `uname` gives it.
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

/// Asks the running kernel; absent names when it does not answer.
JXKernelNames readKernelNames();

/// NAME and VERSION_ID of /etc/os-release, or of /usr/lib/os-release where there is no such file;
/// for what they do not tell, the kernel's name and release. `root` stands before the paths.
JXOsRelease readOsRelease(const std::string& root, const JXKernelNames& kernel);

/// The model that the device tree or the board's firmware names; absent when neither does, or when
/// it holds what a maker left unfilled. `root` stands before the paths.
JXString readDeviceModel(const std::string& root);

}  // namespace jx
